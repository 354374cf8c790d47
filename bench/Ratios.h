#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace quorvane {

/// Prints the median of each benchmark's repetitions and keeps the time per item of every repetition, so that
/// ratios between benchmarks of one run can be told afterwards. Times of a busy machine mean little on their
/// own.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  RatioReporter() : ConsoleReporter(OO_None) {}

  void ReportRuns(const std::vector<Run>& runs) override;

  /// The time of the first benchmark over that of the second, each the smallest of all repetitions, which is
  /// what is left of a time on a busy machine when the rest is gone. Nothing if either did not run.
  std::optional<double> ratio(const std::string& of, const std::string& over) const;

  /// The smallest time of an iteration.
  std::optional<double> milliseconds(const std::string& of) const;

 private:
  std::map<std::string, std::vector<double>> times_;
};

}  // namespace quorvane
