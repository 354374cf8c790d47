#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <string>

#include "EngineBench.h"
#include "Goals.h"
#include "Repeated.h"
#include "WarmedUp.h"
#include "reference/Lockstep.h"
#include "reference/ToModel.h"

namespace quorvane {
namespace {

using reference::Case;

constexpr const char* kTwoTypes = "FlipsWithPairEnergies";
constexpr int kSweeps = 10;

const Case& caseOf(const std::string& name) {
  return *std::ranges::find(reference::typicalCases(), name, &Case::name);
}

std::unique_ptr<LatticeModel> tracedModel(const Case& typical) {
  auto model = reference::toModel(warmedUp(typical));
  for (int type = 0; type < model->getNumPixelTypes(); ++type) model->setPixelPersistence(type, 0.9);
  reference::restartSources();
  return model;
}

/// Whole sweeps of the run loop: attempts, polling of the run state, traces of all types.
void sweep(benchmark::State& state, const std::string& name) {
  const auto model = tracedModel(caseOf(name));
  for ([[maybe_unused]] auto _ : state) model->runSweeps(kSweeps);
  state.counters["items"] = kSweeps * kAttempts;
}

/// The same without updating the traces, as in the runner without pictures.
void sweepWithoutTraces(benchmark::State& state, const std::string& name) {
  const auto model = tracedModel(caseOf(name));
  for ([[maybe_unused]] auto _ : state) model->runSweeps(kSweeps, Traces::kLeftAlone);
  state.counters["items"] = kSweeps * kAttempts;
}

void traceUpdate(benchmark::State& state) {
  const auto model = tracedModel(caseOf(kTwoTypes));
  for ([[maybe_unused]] auto _ : state) {
    model->updateHistory();
    benchmark::ClobberMemory();
  }
}

/// One trace has decayed to a denormal number.
void traceUpdateOfVanishedType(benchmark::State& state) {
  const auto model = tracedModel(caseOf(kTwoTypes));
  for (int i = 0; i < model->getIMax(); ++i)
    for (int j = 0; j < model->getJMax(); ++j) {
      model->setSiteValue(i, j, 0);
      model->varMobileHistory[1][i][j] = 5e-324;
    }
  for ([[maybe_unused]] auto _ : state) {
    model->updateHistory();
    benchmark::ClobberMemory();
  }
}

}  // namespace

void registerTraceBenchmarks() {
  for (const SweepGoal& goal : sweepGoals()) {
    repeated("Sweep/" + std::string(goal.name), 2, sweep, std::string(goal.name));
    repeated("SweepWithoutTraces/" + std::string(goal.name), 2, sweepWithoutTraces, std::string(goal.name));
  }
  repeated("TraceUpdate", 100, traceUpdate);
  repeated("TraceUpdateOfVanishedType", 100, traceUpdateOfVanishedType);
}

}  // namespace quorvane
