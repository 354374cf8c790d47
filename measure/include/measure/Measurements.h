#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "measure/Observable.h"

namespace quorvane {

/// The observables of a list, and their rows as CSV.
///
/// An object of any thread, one thread at a time; several objects may be used at once.
class Measurements {
 public:
  /// \param list names of observables, separated by commas, with their arguments: "counts,order:solvent:#2".
  ///   Blanks around an entry are ignored.
  /// \param start the lattice before the first sweep
  /// Throws MeasureError, which names the entry of the list, if it is not understood or stands there twice.
  Measurements(std::string_view list, const Snapshot& start);

  /// The names of all values, in the order of the list.
  const std::vector<std::string>& columns() const { return columns_; }
  /// The values of all observables. Throws MeasureError if the snapshot is of another size or number of types
  /// than the first, or not valid. The row is good until the next call.
  const Row& measure(const Snapshot& snapshot);

  /// `sweep` and the columns, with the end of the line.
  std::string csvHeader() const;
  /// The number of the sweep and the values, with the end of the line.
  std::string csvRow(std::int64_t sweep, const Snapshot& snapshot);

  /// True if the values of a row depend on the rows before it.
  bool remembers() const;
  /// What the observables keep between rows, as bytes that are the same on every machine.
  std::string state() const;
  /// Goes on where another object, made with the same list and sizes, gave its state. Throws MeasureError if
  /// it is not such a state; then this object must not be used further.
  void restore(std::string_view state);

 private:
  int imax_, jmax_, numTypes_;
  std::vector<std::unique_ptr<Observable>> observables_;
  std::vector<std::string> columns_;
  Row row_;
};

}  // namespace quorvane
