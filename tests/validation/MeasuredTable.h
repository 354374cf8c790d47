#pragma once

#include <string>
#include <vector>

namespace quorvane::validation {

/// What quorvane-batch measures on the lattice of a document of two types with a flip between them, "Spins
/// flip", and a pair energy between them, "Unlike spins repel".
class MeasuredTable {
 public:
  /// options: all but the document and --measure. Throws std::runtime_error if the run fails.
  explicit MeasuredTable(std::vector<std::string> options);

  std::size_t numRows() const { return rows_.size(); }
  /// A value of a row, by its column. Throws std::runtime_error for a column that is not there.
  double at(std::size_t row, const std::string& column) const { return rows_[row][indexOf(column)]; }

 private:
  std::size_t indexOf(const std::string& column) const;

  std::vector<std::string> columns_;
  std::vector<std::vector<double>> rows_;
};

}  // namespace quorvane::validation
