#include "EngineBench.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "Repeated.h"
#include "WarmedUp.h"
#include "engine/Sweeper.h"
#include "engine/f_ran0.h"
#include "reference/Cases.h"
#include "reference/Lockstep.h"
#include "reference/Ran0.h"

namespace quorvane {
namespace {

using reference::Case;
using reference::System;

constexpr int kDraws = 1'000'000;

void itemsOfAnIteration(benchmark::State& state, int items) {
  state.counters["items"] = items;
  state.SetItemsProcessed(state.iterations() * items);
}

void draw(benchmark::State& state) {
  reference::restartSources();
  for ([[maybe_unused]] auto _ : state)
    for (int k = 0; k < kDraws; ++k) benchmark::DoNotOptimize(fRandReal());
  itemsOfAnIteration(state, kDraws);
}

void referenceDraw(benchmark::State& state) {
  reference::restartSources();
  for ([[maybe_unused]] auto _ : state)
    for (int k = 0; k < kDraws; ++k) benchmark::DoNotOptimize(reference::fRandReal());
  itemsOfAnIteration(state, kDraws);
}

/// Attempts as the run loop makes them.
void attempt(benchmark::State& state, const Case& typical) {
  const auto system = reference::toEngine(warmedUp(typical));
  Sweeper sweeper(reference::arraysOf(*system));
  const Relaxed<std::int32_t> going = 1;
  reference::restartSources();
  for ([[maybe_unused]] auto _ : state) sweeper.sweep(going, going);
  itemsOfAnIteration(state, kAttempts);
}

void referenceAttempt(benchmark::State& state, const Case& typical) {
  const auto system = std::make_unique<System>(warmedUp(typical));
  reference::restartSources();
  for ([[maybe_unused]] auto _ : state)
    for (int k = 0; k < kAttempts; ++k) reference::attempt(*system);
  itemsOfAnIteration(state, kAttempts);
}

}  // namespace

void registerEngineBenchmarks() {
  repeated("Draw", 10, draw);
  repeated("ReferenceDraw", 10, referenceDraw);
  for (const Case& typical : reference::typicalCases()) {
    repeated("Attempt/" + typical.name, 20, attempt, typical);
    repeated("ReferenceAttempt/" + typical.name, 20, referenceAttempt, typical);
  }
}

}  // namespace quorvane
