#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <ostream>
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

  /// One line: a label and the times of the first benchmark over those of the second, of the medians and of
  /// the smallest over all repetitions. Prints nothing if either did not run.
  void printRatio(std::ostream& out, const std::string& label, const std::string& of,
                  const std::string& over) const;

 private:
  std::map<std::string, std::vector<double>> times_;
};

}  // namespace quorvane
