#pragma once

#include <cstdint>
#include <string>

#include "model/LatticeModel.h"

namespace quorvane {

/// How many sites each pixel type holds, as a CSV table that grows with the run. Lines end with a line feed;
/// the first one is `sweep` and the types' names, quoted as RFC 4180 says.
class PopulationTable {
 public:
  explicit PopulationTable(const LatticeModel& model);

  void addRow(const LatticeModel& model, std::int64_t sweep);
  /// What was added since the last clear, whole rows.
  const std::string& csv() const { return csv_; }
  /// Keeps the memory for the rows to come.
  void clear() { csv_.clear(); }

 private:
  std::string csv_;
};

}  // namespace quorvane
