#include "study/RunMaker.h"

#include <algorithm>
#include <new>

#include "batch/Messages.h"
#include "document/ModelDocument.h"
#include "engine/f_ran0.h"
#include "measure/MeasureError.h"
#include "measure/Measurements.h"
#include "model/CopySystem.h"
#include "study/StudyError.h"

namespace quorvane {
namespace {

std::unique_ptr<LatticeModel> emptyModel() {
  auto model = std::make_unique<LatticeModel>();
  model->awakeFromNib();
  return model;
}

double realOf(Value value) {
  return std::visit([](auto number) { return static_cast<double>(number); }, value);
}

/// The rows of one list of observables. Empty lists have none.
class Measured {
 public:
  Measured(const std::string& list, const Snapshot& start) {
    if (!list.empty()) measurements_.emplace(list, start);
  }

  bool any() const { return measurements_.has_value(); }
  std::vector<std::string> columns() const {
    return measurements_ ? measurements_->columns() : std::vector<std::string>();
  }
  /// True if a row depends on the rows before it.
  bool remembers() const { return measurements_ && measurements_->remembers(); }
  const std::vector<Value>& measure(const Snapshot& snapshot) {
    return measurements_->measure(snapshot).values();
  }

 private:
  std::optional<Measurements> measurements_;
};

/// The values of each column of a run.
class Columns {
 public:
  Columns(std::size_t number, std::size_t rows) : columns_(number) {
    for (auto& column : columns_) column.reserve(rows);
  }
  void add(const std::vector<Value>& row) {
    for (std::size_t k = 0; k < columns_.size(); ++k) columns_[k].push_back(realOf(row[k]));
  }
  std::vector<Moments> moments() const {
    std::vector<Moments> all;
    for (const auto& column : columns_) all.push_back(momentsOf(column));
    return all;
  }

 private:
  std::vector<std::vector<double>> columns_;
};

/// Makes sweeps a few at a time, so that goOn is asked often enough on the largest lattice. False if it said
/// no.
bool makeSweeps(LatticeModel& model, std::int64_t count, const std::function<bool()>& goOn) {
  constexpr std::int64_t atOnce = 16;
  for (std::int64_t done = 0; done < count; done += atOnce) {
    if (!goOn()) return false;
    model.runSweeps(std::min(atOnce, count - done), Traces::kLeftAlone);
  }
  return true;
}

}  // namespace

RunMaker::RunMaker(Study study, const std::string& text)
    : study_(std::move(study)), opened_(emptyModel()), model_(emptyModel()) {
  const std::string document = nameOf(study_.document);
  processRandomSource.startAnew(1);
  const std::int64_t before = processRandomSource.drawsMade();
  const OpenResult result = readDocument(*opened_, text);
  if (result.status != OpenStatus::kOpened) throw StudyError(document + ": " + result.reason);
  drawsToOpen_ = processRandomSource.drawsMade() - before;
  // Every value of every axis is tried, so that nothing is refused in the middle of a study.
  const std::int64_t ofSides = numPoints(study_) / std::max<std::int64_t>(1, std::ssize(study_.sides));
  for (const std::int64_t point : pointsAlongAxes(study_)) {
    try {
      start(point);
      if (point % ofSides == 0) shapes_.push_back(shapeNow());
    } catch (const SettingError& error) {
      throw StudyError(document + ": " + onOneLine(error.what()));
    } catch (const MeasureError& error) {
      throw StudyError(document + ": observables: " + onOneLine(error.what()));
    }
  }
}

const RunMaker::Shape& RunMaker::shapeOf(std::int64_t point) const {
  return shapes_[study_.sides.empty() ? 0 : placesOf(study_, point)[0]];
}

std::vector<std::string> RunMaker::typeNames() const { return snapshotOf(*opened_).names; }

RunMaker::Shape RunMaker::shapeNow() const {
  const Snapshot now = snapshotOf(*model_);
  return {.columns = Measured(study_.observables, now).columns(),
          .series = Measured(study_.series, now).columns(),
          .numSites = now.numSites()};
}

void RunMaker::start(std::int64_t run) {
  const Start start = startOf(study_, run);
  processRandomSource.startAnew(*start.seed);
  for (std::int64_t k = 0; k < drawsToOpen_; ++k) processRandomSource.next();
  copySystem(*opened_, *model_);
  changeBeforeRun(*model_, start);
}

std::optional<RunResult> RunMaker::make(std::int64_t run, const std::function<bool()>& goOn) {
  start(run);
  const Snapshot first = snapshotOf(*model_);
  Measured averages(study_.observables, first), series(study_.series, first);
  Columns columns(averages.columns().size(), static_cast<std::size_t>(numMeasurements(study_)));
  RunResult result;
  for (std::int64_t sweep = 0; sweep <= study_.sweeps; sweep += study_.every) {
    if (sweep > 0 && !makeSweeps(*model_, study_.every, goOn)) return std::nullopt;
    const bool counts = sweep >= study_.discard;
    if (!counts && !series.any() && !averages.remembers()) continue;
    const Snapshot now = snapshotOf(*model_);
    if (counts || averages.remembers()) {
      const auto& row = averages.measure(now);
      if (counts) columns.add(row);
    }
    if (!series.any()) continue;
    for (const Value value : series.measure(now)) result.series.push_back(realOf(value));
  }
  result.moments = columns.moments();
  return result;
}

}  // namespace quorvane
