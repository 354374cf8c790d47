#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>
#include <vector>

#include "EngineBench.h"
#include "Goals.h"
#include "Ratios.h"

namespace {

using quorvane::RatioReporter;

void printGoals(const RatioReporter& reporter) {
  std::printf("\nAn attempt in draws of one random number%22s%12s%8s%10s\n", "draws made", "measured", "goal",
              "recorded");
  for (const auto& goal : quorvane::goals()) {
    const auto ratio = reporter.ratio(std::string("Attempt/") + goal.name, "Draw");
    if (ratio)
      std::printf("%-42s%20s%12.2f%8.1f%10.1f\n", goal.name, goal.draws, *ratio, goal.most, goal.recorded);
  }
  std::printf("\nA whole sweep of the run loop in its attempts\n");
  for (const auto& goal : quorvane::sweepGoals()) {
    const auto ratio = reporter.ratio(std::string("Sweep/") + goal.name, std::string("Attempt/") + goal.name);
    if (ratio) std::printf("%-62s%12.2f%8.2f\n", goal.name, *ratio, goal.most);
  }
}

void printOthers(const RatioReporter& reporter) {
  std::printf("\nTimes over those of the plainest form%50s%10s\n", "ratio", "faster");
  const auto print = [&](const std::string& of, const std::string& over) {
    if (const auto ratio = reporter.ratio(of, over))
      std::printf("%-74s%12.3f%10.2f\n", (of + " / " + over).c_str(), *ratio, 1.0 / *ratio);
  };
  print("Draw", "ReferenceDraw");
  for (const auto& goal : quorvane::goals())
    print(std::string("Attempt/") + goal.name, std::string("ReferenceAttempt/") + goal.name);
  for (const auto& goal : quorvane::sweepGoals())
    print(std::string("SweepWithoutTraces/") + goal.name, std::string("Sweep/") + goal.name);
  print("TraceUpdateOfVanishedType", "TraceUpdate");
  std::printf("\nMilliseconds of the largest document, 256 x 256 sites (goal 10)\n");
  for (const char* of : {"WriteText", "ReadText", "Save", "Open"})
    if (const auto time = reporter.milliseconds(of)) std::printf("%-74s%12.2f\n", of, *time);
}

}  // namespace

int main(int argc, char** argv) {
  quorvane::registerEngineBenchmarks();
  quorvane::registerTraceBenchmarks();
  quorvane::registerDocumentBenchmarks();
  // Other load then affects both sides of a ratio alike.
  static char interleaved[] = "--benchmark_enable_random_interleaving=true";
  std::vector<char*> arguments(argv, argv + argc);
  arguments.insert(arguments.begin() + 1, interleaved);
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
  quorvane::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  printGoals(reporter);
  printOthers(reporter);
}
