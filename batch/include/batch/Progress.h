#pragma once

#include <chrono>
#include <cstdint>

namespace quorvane {

/// Tells a terminal's standard error how far a run is, about three times a second; says nothing to anything
/// that is no terminal, and nothing to one that shows results.
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
  std::int64_t total_;
  bool onTerminal_;
  bool shown_ = false;
  std::chrono::steady_clock::time_point next_;
};

}  // namespace quorvane
