#pragma once

#include <filesystem>

#include "batch/Messages.h"

namespace quorvane {

inline constexpr const char* kReportName = "report.html";

/// Makes the tables of a study anew and writes report.html beside them: what was studied, by what program,
/// and figures of every observable with their data, in one file that needs nothing else. Its bytes depend
/// only on the results and on the version of gnuplot, which draws the figures.
///
/// Returns an exit status as StudyActions do, after a line for each failure: without gnuplot the tables are
/// made, and there is no report.
int makeReport(const std::filesystem::path& results, Messages& messages);

}  // namespace quorvane
