#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "study/RunMaker.h"
#include "study/StudyFolder.h"
#include "study/StudyResults.h"

namespace quorvane {

/// Names and bytes of the tables depend only on the study, its document and which runs were made.
inline constexpr const char* kRunsTable = "runs.csv";
inline constexpr const char* kPointsTable = "points.csv";
inline constexpr const char* kSeriesTable = "series.csv";
inline constexpr const char* kFailedTable = "failed.csv";

/// Writes runs.csv and points.csv, series.csv if the study has series, and failed.csv if runs failed, which
/// is removed otherwise. Each replaces its former file when it is whole. Memory does not grow with the runs
/// beyond their index. Throws StudyError or BatchFailure.
///
/// - runs.csv, sorted by run: run, replica, seed, the settings of the point, and for each column of the
///   observables X: X_mean, X_square, X_fourth (averages over the measurements of X, X^2, X^4) and X_tau
///   (integrated autocorrelation time, in measurements).
/// - points.csv, sorted by point: point, the settings, replicas (those made), and for each column X_mean and
///   X_error; for an order parameter also susceptibility and Binder cumulant, for the energy the specific
///   heat, each with its error.
/// - series.csv: point, the settings, sweep, and for each column of the series X_mean and X_error.
///
/// A column that the lattice of a point has not is empty there.
void writeTables(const StudyFolder& folder, const RunMaker& shapes, StudyResults& results);

}  // namespace quorvane
