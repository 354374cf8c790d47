#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "measure/Row.h"
#include "measure/Snapshot.h"

namespace quorvane {

/// Something that is measured on a lattice, row by row, made for one size and one number of types.
///
/// Values depend only on the snapshots, to the bit and on every machine. An undefined value, such as the mean
/// of nothing, is nan.
class Observable {
 public:
  Observable() = default;
  Observable(const Observable&) = delete;
  Observable& operator=(const Observable&) = delete;
  virtual ~Observable() = default;

  /// The names of the values that measure adds.
  virtual std::vector<std::string> columns() const = 0;
  /// Adds a value for each column. The snapshot has the size and number of types that this was made for.
  virtual void measure(const Snapshot& snapshot, Row& row) = 0;

  /// What measure needs of former snapshots, as bytes that are the same on every machine; empty if nothing.
  virtual std::string state() const { return {}; }
  /// Goes on from a state. Throws MeasureError if it cannot be one of this observable.
  virtual void restore(std::string_view state);
};

}  // namespace quorvane
