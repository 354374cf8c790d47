#include "study/RunMaker.h"

#include <algorithm>
#include <new>
#include <set>
#include <tuple>

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
  processRandomSource.startAnew(1);
  const std::int64_t before = processRandomSource.drawsMade();
  const OpenResult result = readDocument(*opened_, text);
  if (result.status != OpenStatus::kOpened)
    refuse(study_.source.document, "document " + nameOf(study_.document) + ": " + result.reason);
  drawsToOpen_ = processRandomSource.drawsMade() - before;
  requireNames();
  const std::int64_t ofSides = numPoints(study_) / std::max<std::int64_t>(1, std::ssize(study_.sides));
  for (std::int64_t point = 0; point < numPoints(study_); point += ofSides) {
    start(point);
    shapes_.push_back(shapeNow());
  }
}

void RunMaker::refuse(int line, const std::string& why) const {
  throw StudyError(study_.source.file + ": line " + std::to_string(line) + ": " + onOneLine(why));
}

/// Tries every value of every axis, the shares and the observables, so that nothing is refused in the middle
/// of a study.
void RunMaker::requireNames() {
  std::set<std::tuple<int, int, std::string>> varied;
  for (const Axis& axis : study_.axes) {
    try {
      const int index =
          axis.of == Setting::kRule ? ruleNamed(*opened_, axis.name) : typeNamed(*opened_, axis.name);
      if (!varied.emplace(static_cast<int>(axis.of), index, axis.field).second)
        refuse(axis.line, "[[vary]]: the " + axis.field + " of " + inQuotes(axis.name) + " is varied twice");
      copySystem(*opened_, *model_);
      for (const std::string& value : axis.values)
        apply({.of = axis.of, .name = axis.name, .field = axis.field, .value = value}, *model_);
    } catch (const SettingError& error) {
      refuse(axis.line, std::string("[[vary]]: ") + error.what());
    }
  }
  copySystem(*opened_, *model_);
  try {
    if (!study_.fill.empty()) fill(*model_, study_.fill);
  } catch (const SettingError& error) {
    refuse(study_.source.fill, std::string("fill: ") + error.what());
  }
  const Snapshot now = snapshotOf(*model_);
  requireObservables(study_.observables, now, study_.source.observables);
  requireObservables(study_.series, now, study_.source.series);
}

void RunMaker::requireObservables(const std::string& list, const Snapshot& now, int line) const {
  try {
    const Measured measured(list, now);
  } catch (const MeasureError& error) {
    refuse(line, std::string("observables: ") + error.what());
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
