#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace quorvane {

/// Prints the median of each benchmark's repetitions and keeps the time per item of every repetition, for
/// ratios between benchmarks of one run. Absolute times on a busy machine mean little.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  RatioReporter() : ConsoleReporter(OO_None) {}

  void ReportRuns(const std::vector<Run>& runs) override;

  /// The time of the first benchmark over that of the second, each the minimum of all repetitions, which is
  /// least affected by other load. None if either did not run.
  std::optional<double> ratio(const std::string& of, const std::string& over) const;

  /// The minimum time of an iteration. None if it did not run.
  std::optional<double> milliseconds(const std::string& of) const;

 private:
  std::map<std::string, std::vector<double>> times_;
};

}  // namespace quorvane
