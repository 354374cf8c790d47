#include "study/Tables.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "CsvFile.h"
#include "PointEstimates.h"
#include "UnitedColumns.h"
#include "batch/Messages.h"
#include "study/StudyError.h"

namespace quorvane {
namespace {

using Entry = StudyResults::Entry;

/// The columns of one kind, averages or series, over all points.
class ColumnPlan {
 public:
  ColumnPlan(const Study& study, const RunMaker& shapes, std::vector<std::string> RunMaker::Shape::*which)
      : study_(study), shapes_(shapes), which_(which) {
    const std::int64_t points = numPoints(study);
    const std::int64_t sides = std::max<std::int64_t>(1, std::ssize(study.sides));
    std::vector<std::vector<std::string>> lists;
    for (std::int64_t k = 0; k < sides; ++k) lists.push_back(listOf(k * (points / sides)));
    names_ = unitedColumns(lists);
    for (const auto& list : lists) places_.push_back(placesIn(list, names_));
  }

  const std::vector<std::string>& names() const { return names_; }
  /// Where the columns are in a result of a point.
  const std::vector<std::size_t>& placesOf(std::int64_t point) const {
    return places_[study_.sides.empty() ? 0 : quorvane::placesOf(study_, point)[0]];
  }
  const std::vector<std::string>& listOf(std::int64_t point) const { return shapes_.shapeOf(point).*which_; }

 private:
  const Study& study_;
  const RunMaker& shapes_;
  std::vector<std::string> RunMaker::Shape::*which_;
  std::vector<std::string> names_;
  std::vector<std::vector<std::size_t>> places_;
};

void addAll(CsvFile& table, const std::vector<std::string>& cells) {
  for (const std::string& cell : cells) table << cell;
}

/// Everything that the three tables share.
class Writer {
 public:
  Writer(const StudyFolder& folder, const RunMaker& shapes, StudyResults& results)
      : folder_(folder),
        study_(folder.study()),
        shapes_(shapes),
        results_(results),
        averages_(study_, shapes, &RunMaker::Shape::columns),
        series_(study_, shapes, &RunMaker::Shape::series) {}

  void writeRuns();
  void writePoints();
  void writeSeries();
  void writeFailed();

 private:
  /// The result of a run, with as many values as its lattice has columns.
  RunResult resultOf(const Entry& entry);
  /// Calls work for each run of a point that was made, in the order of the replicas.
  void forEachRun(std::int64_t point, const std::function<void(const RunResult&)>& work);
  std::int64_t numMade(std::int64_t point) const;
  void writePoint(CsvFile& table, std::int64_t point);
  void writeSeriesOf(CsvFile& table, std::int64_t point);

  const StudyFolder& folder_;
  const Study& study_;
  const RunMaker& shapes_;
  StudyResults& results_;
  ColumnPlan averages_, series_;
};

RunResult Writer::resultOf(const Entry& entry) {
  RunResult result = results_.result(entry);
  const std::int64_t point = entry.run % numPoints(study_);
  const auto rows = static_cast<std::size_t>(study_.sweeps / study_.every + 1);
  if (result.moments.size() != averages_.listOf(point).size() ||
      result.series.size() != series_.listOf(point).size() * rows)
    throw StudyError(nameOf(results_.fileOf(entry)) + ": run " + std::to_string(entry.run) +
                     " has other columns");
  return result;
}

void Writer::writeRuns() {
  CsvFile table(folder_.path() / kRunsTable);
  table << "run"
        << "replica"
        << "seed";
  addAll(table, settingNames(study_));
  for (const std::string& name : averages_.names())
    for (const char* what : {"_mean", "_square", "_fourth", "_tau"}) table << name + what;
  table.endRow();
  for (const Entry& entry : results_.made()) {
    const std::int64_t point = entry.run % numPoints(study_);
    table << entry.run << entry.run / numPoints(study_) << study_.seed + entry.run;
    addAll(table, settingValues(study_, point));
    const RunResult result = resultOf(entry);
    for (const std::size_t place : averages_.placesOf(point)) {
      if (place == noPlace) {
        table << ""
              << ""
              << ""
              << "";
      } else {
        const Moments& moments = result.moments[place];
        table << moments.mean << moments.square << moments.fourth << moments.tau;
      }
    }
    table.endRow();
  }
  table.finish();
}

std::int64_t Writer::numMade(std::int64_t point) const {
  std::int64_t made = 0;
  for (std::int64_t replica = 0; replica < study_.replicas; ++replica)
    if (results_.find(replica * numPoints(study_) + point)) ++made;
  return made;
}

void Writer::forEachRun(std::int64_t point, const std::function<void(const RunResult&)>& work) {
  for (std::int64_t replica = 0; replica < study_.replicas; ++replica)
    if (const Entry* entry = results_.find(replica * numPoints(study_) + point)) work(resultOf(*entry));
}

void Writer::writePoints() {
  CsvFile table(folder_.path() / kPointsTable);
  table << "point";
  addAll(table, settingNames(study_));
  table << "replicas";
  for (const std::string& name : averages_.names())
    for (const EstimateKind& kind : estimatesFor(name)) table << name + kind.name << name + kind.errorName;
  table.endRow();
  for (std::int64_t point = 0; point < numPoints(study_); ++point)
    if (numMade(point) > 0) writePoint(table, point);
  table.finish();
}

void Writer::writePoint(CsvFile& table, std::int64_t point) {
  const auto& columns = averages_.listOf(point);
  std::vector<ReplicaSums> sums(columns.size());
  forEachRun(point, [&](const RunResult& result) {
    for (std::size_t k = 0; k < sums.size(); ++k) sums[k].add(result.moments[k]);
  });
  const auto numSites = static_cast<double>(shapes_.shapeOf(point).numSites);
  std::vector<std::vector<Jackknife>> jackknives(columns.size());
  for (std::size_t k = 0; k < columns.size(); ++k)
    for (const EstimateKind& kind : estimatesFor(columns[k]))
      jackknives[k].emplace_back(kind.function, sums[k], numSites);
  forEachRun(point, [&](const RunResult& result) {
    for (std::size_t k = 0; k < columns.size(); ++k)
      for (Jackknife& jackknife : jackknives[k]) jackknife.leaveOut(result.moments[k]);
  });
  table << point;
  addAll(table, settingValues(study_, point));
  table << numMade(point);
  const auto& places = averages_.placesOf(point);
  for (std::size_t k = 0; k < places.size(); ++k) {
    if (places[k] == noPlace) {
      for (std::size_t empty = 0; empty < estimatesFor(averages_.names()[k]).size(); ++empty)
        table << ""
              << "";
    } else {
      for (const Jackknife& jackknife : jackknives[places[k]]) {
        const Estimate estimate = jackknife.estimate();
        table << estimate.value << estimate.error;
      }
    }
  }
  table.endRow();
}

void Writer::writeSeries() {
  if (study_.series.empty()) return;
  CsvFile table(folder_.path() / kSeriesTable);
  table << "point";
  addAll(table, settingNames(study_));
  table << "sweep";
  for (const std::string& name : series_.names()) table << name + "_mean" << name + "_error";
  table.endRow();
  for (std::int64_t point = 0; point < numPoints(study_); ++point)
    if (numMade(point) > 0) writeSeriesOf(table, point);
  table.finish();
}

void Writer::writeSeriesOf(CsvFile& table, std::int64_t point) {
  const auto n = static_cast<double>(numMade(point));
  const std::size_t width = series_.listOf(point).size();
  std::vector<double> means(width * static_cast<std::size_t>(study_.sweeps / study_.every + 1), 0.0);
  forEachRun(point, [&](const RunResult& result) {
    for (std::size_t k = 0; k < means.size(); ++k) means[k] += result.series[k];
  });
  for (double& mean : means) mean /= n;
  std::vector<double> squares(means.size(), 0.0);
  forEachRun(point, [&](const RunResult& result) {
    for (std::size_t k = 0; k < means.size(); ++k)
      squares[k] += (result.series[k] - means[k]) * (result.series[k] - means[k]);
  });
  for (std::size_t row = 0; row * width < means.size(); ++row) {
    table << point;
    addAll(table, settingValues(study_, point));
    table << static_cast<std::int64_t>(row) * study_.every;
    for (const std::size_t place : series_.placesOf(point)) {
      if (place == noPlace) {
        table << ""
              << "";
      } else {
        const std::size_t k = row * width + place;
        // One replica has no scatter.
        table << means[k] << (n < 2.0 ? std::nan("") : std::sqrt(squares[k] / (n * (n - 1.0))));
      }
    }
    table.endRow();
  }
}

void Writer::writeFailed() {
  const auto file = folder_.path() / kFailedTable;
  if (results_.failed().empty()) {
    std::error_code none;
    std::filesystem::remove(file, none);
    return;
  }
  CsvFile table(file);
  table << "run"
        << "replica"
        << "seed";
  addAll(table, settingNames(study_));
  table << "reason";
  table.endRow();
  for (const Entry& entry : results_.failed()) {
    table << entry.run << entry.run / numPoints(study_) << study_.seed + entry.run;
    addAll(table, settingValues(study_, entry.run % numPoints(study_)));
    table << results_.result(entry).failure;
    table.endRow();
  }
  table.finish();
}

}  // namespace

void writeTables(const StudyFolder& folder, const RunMaker& shapes, StudyResults& results) {
  Writer writer(folder, shapes, results);
  writer.writeRuns();
  writer.writePoints();
  writer.writeSeries();
  writer.writeFailed();
}

}  // namespace quorvane
