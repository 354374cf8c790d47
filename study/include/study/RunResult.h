#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "study/TimeSeries.h"

namespace quorvane {

/// What is kept of one run.
struct RunResult {
  std::vector<Moments> moments;  ///< for each column
  /// The values of the series at sweep 0, every, 2 every, ..., column by column for each sweep.
  std::vector<double> series;
  /// Why the run gave nothing; empty if it did.
  std::string failure;
};

/// As the content of a record, and back. Throws StudyError for bytes that are no result.
std::string bytesOf(const RunResult& result);
RunResult resultIn(std::string_view bytes);
/// True if such bytes are of a run that gave nothing.
bool isFailure(std::string_view bytes);

}  // namespace quorvane
