#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "Ratios.h"
#include "Repeated.h"
#include "measure/Measurements.h"
#include "measure/Registry.h"
#include "model/LatticeModel.h"

namespace quorvane {
namespace {

constexpr int kSide = 254;
constexpr int kRows = 20;
constexpr const char* kAllButStructure = "counts,energy,contacts,clusters,order:0:1,kept,correlation";

/// Sites of two types, each with the same probability.
void fillAtRandom(LatticeModel& model) {
  model.awakeFromNib();
  model.initializeLatticeModel(2, kSide, kSide);
}

/// Domains some ten sites wide: each site takes the type of most sites around it, over and over.
void growDomains(LatticeModel& model) {
  constexpr int rounds = 10;
  std::vector<std::pair<int, int>> steps;
  for (int i = -1; i <= 1; ++i)
    for (int j = -1; j <= 1; ++j) steps.emplace_back(i, j);
  for (int round = 0; round < rounds; ++round)
    for (int i = 0; i < kSide; ++i)
      for (int j = 0; j < kSide; ++j) {
        const auto ones = std::count_if(steps.begin(), steps.end(), [&](auto step) {
          return model.getSiteValue((i + step.first + kSide) % kSide, (j + step.second + kSide) % kSide) == 1;
        });
        model.setSiteValue(i, j, ones > 4 ? 1 : 0);
      }
}

const LatticeModel& lattice(bool domains) {
  static LatticeModel models[2];
  static const bool isReady = [] {
    for (auto& model : models) fillAtRandom(model);
    growDomains(models[1]);
    return true;
  }();
  benchmark::DoNotOptimize(isReady);
  return models[domains ? 1 : 0];
}

/// A row as a run takes it, with the snapshot and the text.
void row(benchmark::State& state, const std::string& list, bool domains) {
  const LatticeModel& model = lattice(domains);
  Measurements measurements(list, snapshotOf(model));
  std::int64_t sweep = 0;
  for ([[maybe_unused]] auto _ : state)
    benchmark::DoNotOptimize(measurements.csvRow(++sweep, snapshotOf(model)));
}

void snapshotAlone(benchmark::State& state) {
  const LatticeModel& model = lattice(false);
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(snapshotOf(model));
}

std::string benchName(const std::string& list, bool domains) {
  return list + (domains ? "/domains" : "/random");
}

std::vector<std::string> lists() {
  std::vector<std::string> all;
  for (const ObservableKind* kind : observableKinds())
    all.push_back(kind->numArguments() == 0 ? std::string(kind->name) : "order:0:1");
  all.emplace_back(kAllButStructure);
  return all;
}

void registerMeasureBenchmarks() {
  repeated("snapshot", kRows, [](benchmark::State& state) { snapshotAlone(state); });
  for (const auto& list : lists())
    for (const bool domains : {false, true})
      repeated(benchName(list, domains), kRows,
               [list, domains](benchmark::State& state) { row(state, list, domains); });
}

void printRows(const RatioReporter& reporter) {
  std::printf("\nMilliseconds of a row of %d x %d sites with two types%33s%10s\n", kSide, kSide, "random",
              "domains");
  std::printf("%-78s%10.3f\n", "the snapshot, which is part of every row",
              *reporter.milliseconds("snapshot"));
  for (const auto& list : lists())
    std::printf("%-78s%10.3f%10.3f\n", list.c_str(), *reporter.milliseconds(benchName(list, false)),
                *reporter.milliseconds(benchName(list, true)));
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  quorvane::registerMeasureBenchmarks();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  quorvane::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  quorvane::printRows(reporter);
}
