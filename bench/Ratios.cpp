#include "Ratios.h"

#include <algorithm>
#include <iomanip>

namespace quorvane {
namespace {

double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

double smallest(const std::vector<double>& values) { return *std::min_element(values.begin(), values.end()); }

/// The library has told a failed run in two ways over its versions.
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

void RatioReporter::printRatio(std::ostream& out, const std::string& label, const std::string& of,
                               const std::string& over) const {
  const auto a = times_.find(of);
  const auto b = times_.find(over);
  if (a == times_.end() || b == times_.end()) return;
  const double medians = median(a->second) / median(b->second);
  const double minima = smallest(a->second) / smallest(b->second);
  out << std::left << std::setw(78) << label << std::right << std::fixed << std::setprecision(3)
      << std::setw(10) << medians << std::setw(10) << minima << std::setw(11) << 1.0 / medians << "x\n";
}

}  // namespace quorvane
