#include "measure/Measurements.h"

#include <algorithm>

#include "ByteText.h"
#include "ObservableList.h"
#include "measure/MeasureError.h"

namespace quorvane {
namespace {

const Snapshot& checked(const Snapshot& snapshot) {
  requireValid(snapshot);
  return snapshot;
}

std::string sizeText(int imax, int jmax, int numTypes) {
  return std::to_string(imax) + " x " + std::to_string(jmax) + " sites with " + std::to_string(numTypes) +
         (numTypes == 1 ? " pixel type" : " pixel types");
}

}  // namespace

Measurements::Measurements(std::string_view list, const Snapshot& start)
    : imax_(start.imax),
      jmax_(start.jmax),
      numTypes_(start.numTypes),
      observables_(observablesOf(list, checked(start))) {
  for (const auto& observable : observables_)
    for (auto& column : observable->columns()) columns_.push_back(std::move(column));
}

const Row& Measurements::measure(const Snapshot& snapshot) {
  requireValid(snapshot);
  if (snapshot.imax != imax_ || snapshot.jmax != jmax_ || snapshot.numTypes != numTypes_)
    throw MeasureError("the lattice to measure has " +
                       sizeText(snapshot.imax, snapshot.jmax, snapshot.numTypes) + ", and had " +
                       sizeText(imax_, jmax_, numTypes_) + " at the start");
  row_.clear();
  for (const auto& observable : observables_) observable->measure(snapshot, row_);
  return row_;
}

std::string Measurements::csvHeader() const {
  std::string line = "sweep";
  for (const auto& column : columns_) line += ',' + column;
  return line + '\n';
}

std::string Measurements::csvRow(std::int64_t sweep, const Snapshot& snapshot) {
  std::string line = std::to_string(sweep);
  for (const Value value : measure(snapshot).values()) {
    line += ',';
    appendText(line, value);
  }
  return line + '\n';
}

bool Measurements::remembers() const {
  return std::any_of(observables_.begin(), observables_.end(),
                     [](const auto& observable) { return !observable->state().empty(); });
}

std::string Measurements::state() const {
  std::string bytes;
  for (const auto& observable : observables_) appendBlock(bytes, observable->state());
  return bytes;
}

void Measurements::restore(std::string_view state) {
  for (const auto& observable : observables_) observable->restore(takeBlock(state));
  if (!state.empty()) throw MeasureError("the stored state of the observables is of another list");
}

}  // namespace quorvane
