#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace quorvane {

/// How far a run is, as the longest text that fits into a number of columns: sweeps made and to make, the
/// part of them, and the time that the rest takes if it goes on like this. At least the part, however few
/// columns.
std::string progressText(std::int64_t done, std::int64_t total, std::chrono::duration<double> elapsed,
                         int columns);

/// Tells a terminal's standard error how far a run is, about three times a second, in one line that fits the
/// terminal as wide as it is at that moment; says nothing to anything that is no terminal, and nothing to one
/// that shows results.
class Progress {
 public:
  /// resultsOnOutput: standard output carries results.
  Progress(std::int64_t total, bool resultsOnOutput);
  /// Leaves an empty line for what comes next.
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void show(std::int64_t done);

 private:
  using Clock = std::chrono::steady_clock;

  std::int64_t total_;
  bool onTerminal_;
  bool shown_ = false;
  Clock::time_point start_ = Clock::now();
  Clock::time_point next_;
};

}  // namespace quorvane
