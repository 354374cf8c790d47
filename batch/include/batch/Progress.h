#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "batch/TerminalLine.h"

namespace quorvane {

/// The progress of a run, as the longest text that fits into a number of columns: sweeps done and in all, the
/// percentage, and the time left at the present speed. The percentage alone is returned even if it does not
/// fit. before: sweeps that were done when the time began.
std::string progressText(std::int64_t done, std::int64_t total, std::chrono::duration<double> elapsed,
                         int columns, std::int64_t before = 0);

/// Prints progress as a TerminalLine.
class Progress {
 public:
  /// resultsOnOutput: results go to standard output. before: sweeps done already.
  Progress(std::int64_t total, bool resultsOnOutput, std::int64_t before)
      : total_(total), before_(before), line_(resultsOnOutput) {}

  void show(std::int64_t done);

 private:
  using Clock = std::chrono::steady_clock;

  std::int64_t total_, before_;
  TerminalLine line_;
  Clock::time_point start_ = Clock::now();
};

}  // namespace quorvane
