#include "Ratios.h"

#include <algorithm>

namespace quorvane {
namespace {

double smallest(const std::vector<double>& values) { return *std::min_element(values.begin(), values.end()); }

/// Versions of Google Benchmark mark a failed run by different members.
template <class Run>
bool failed(const Run& run) {
  if constexpr (requires { run.error_occurred; })
    return run.error_occurred;
  else
    return run.skipped != decltype(run.skipped){};
}

}  // namespace

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
  std::vector<Run> medians;
  for (const Run& run : runs) {
    if (run.aggregate_name == "median" || failed(run)) medians.push_back(run);
    if (run.run_type != Run::RT_Iteration || failed(run)) continue;
    const auto items = run.counters.find("items");
    const double perIteration = run.cpu_accumulated_time / static_cast<double>(run.iterations);
    times_[run.run_name.function_name].push_back(items == run.counters.end() ? perIteration
                                                                             : perIteration / items->second);
  }
  if (!medians.empty()) ConsoleReporter::ReportRuns(medians);
}

std::optional<double> RatioReporter::ratio(const std::string& of, const std::string& over) const {
  const auto a = times_.find(of);
  const auto b = times_.find(over);
  if (a == times_.end() || b == times_.end()) return std::nullopt;
  return smallest(a->second) / smallest(b->second);
}

std::optional<double> RatioReporter::milliseconds(const std::string& of) const {
  const auto a = times_.find(of);
  if (a == times_.end()) return std::nullopt;
  return 1e3 * smallest(a->second);
}

}  // namespace quorvane
