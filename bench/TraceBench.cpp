#include <benchmark/benchmark.h>

#include <memory>

#include "EngineBench.h"
#include "model/LatticeModel.h"

namespace quorvane {
namespace {

constexpr int kTypes = 2;
constexpr int kSide = 254;
constexpr int kWarmUpSweeps = 30;
constexpr int kRepetitions = 9;

/// Types that flip into each other with pair energies, close to where they begin to separate.
std::unique_ptr<LatticeModel> flippingModel() {
  auto model = std::make_unique<LatticeModel>();
  model->awakeFromNib();
  model->initializeLatticeModel(kTypes, kSide, kSide);
  model->makeNewRule("flip", kReversibleFlip, 0, 1);
  model->setRuleParam(0, 1.0);
  for (int a = 0; a < kTypes; ++a) {
    model->setPixelPersistence(a, 0.9);
    for (int b = 0; b < kTypes; ++b) model->setPixelIntConstant(a, b, a == b ? -0.38 : 0.38);
  }
  model->varMyState = kRunning;
  for (int k = 0; k < kWarmUpSweeps; ++k) {
    model->sweep();
    model->updateHistory();
  }
  return model;
}

void sweep(benchmark::State& state) {
  const auto model = flippingModel();
  for (auto _ : state) model->sweep();
}

void traceUpdate(benchmark::State& state) {
  const auto model = flippingModel();
  for (auto _ : state) {
    model->updateHistory();
    benchmark::ClobberMemory();
  }
}

/// One trace has decayed for so long that it is smaller than any normal number.
void traceUpdateOfVanishedType(benchmark::State& state) {
  const auto model = flippingModel();
  for (int i = 0; i < kSide; ++i)
    for (int j = 0; j < kSide; ++j) {
      model->setSiteValue(i, j, 0);
      model->varMobileHistory[1][i][j] = 5e-324;
    }
  for (auto _ : state) {
    model->updateHistory();
    benchmark::ClobberMemory();
  }
}

void repeated(const char* name, int iterations, void (*function)(benchmark::State&)) {
  benchmark::RegisterBenchmark(name, function)
      ->Unit(benchmark::kMicrosecond)
      ->Iterations(iterations)
      ->Repetitions(kRepetitions);
}

}  // namespace

void registerTraceBenchmarks() {
  repeated("Sweep", 20, sweep);
  repeated("TraceUpdate", 100, traceUpdate);
  repeated("TraceUpdateOfVanishedType", 100, traceUpdateOfVanishedType);
}

}  // namespace quorvane
