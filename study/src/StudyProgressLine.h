#pragma once

#include <chrono>
#include <string>

#include "study/StudyRun.h"

namespace quorvane {

/// The progress of a study as the longest text that fits into a number of columns: a bar, runs done and
/// failed, runs a second and the time left.
std::string studyProgressText(const StudyProgress& progress, std::chrono::duration<double> elapsed,
                              int columns);

}  // namespace quorvane
