#include <benchmark/benchmark.h>

#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

#include "EngineBench.h"
#include "Ratios.h"
#include "reference/Cases.h"

namespace {

void printRatios(const quorvane::RatioReporter& reporter) {
  std::cout << "\nRatios of times (the last column: how many times faster the first is)\n"
            << std::left << std::setw(78) << "" << std::right << std::setw(10) << "medians" << std::setw(10)
            << "minima" << std::setw(12) << "faster"
            << "\n";
  const auto print = [&](const std::string& of, const std::string& over) {
    reporter.printRatio(std::cout, of + " / " + over, of, over);
  };
  print("Draw", "ReferenceDraw");
  for (const auto& typical : quorvane::reference::typicalCases())
    print("Attempt/" + typical.name, "ReferenceAttempt/" + typical.name);
  for (const auto& typical : quorvane::reference::typicalCases()) print("Attempt/" + typical.name, "Draw");
  print("TraceUpdate", "Sweep");
  print("TraceUpdateOfVanishedType", "Sweep");
  for (const char* of : {"WriteText", "ReadText", "Save", "Open"}) print(of, "Sweep");
}

}  // namespace

int main(int argc, char** argv) {
  quorvane::registerEngineBenchmarks();
  quorvane::registerTraceBenchmarks();
  quorvane::registerDocumentBenchmarks();
  // What a busy machine does then falls on both sides of a ratio alike.
  static char interleaved[] = "--benchmark_enable_random_interleaving=true";
  std::vector<char*> arguments(argv, argv + argc);
  arguments.insert(arguments.begin() + 1, interleaved);
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
  quorvane::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  printRatios(reporter);
}
