#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <utility>

namespace quorvane {

/// Registers a benchmark that is repeated often enough for a minimum, with times in microseconds.
/// \param iterations in each repetition
template <class... Args>
void repeated(const std::string& name, int iterations, Args&&... args) {
  constexpr int repetitions = 9;
  benchmark::RegisterBenchmark(name.c_str(), std::forward<Args>(args)...)
      ->Unit(benchmark::kMicrosecond)
      ->Iterations(iterations)
      ->Repetitions(repetitions);
}

}  // namespace quorvane
