#pragma once

#include <cstdint>
#include <string>

#include "model/SiteCounts.h"

namespace quorvane {

/// How many sites each pixel type holds, as a CSV table that grows with the run. Lines end with a line feed;
/// the first one is `sweep` and the types' names, quoted as RFC 4180 says.
class PopulationTable {
 public:
  /// Has a column for each type that the model has now.
  explicit PopulationTable(const LatticeModel& model);

  void addRow(const LatticeModel& model, std::int64_t sweep) { addRow(countSites(model), sweep); }
  void addRow(const SiteCounts& counts, std::int64_t sweep);
  /// What was added since the last clear, whole rows.
  const std::string& csv() const { return csv_; }
  /// Keeps the memory for the rows to come.
  void clear() { csv_.clear(); }

 private:
  std::size_t numTypes_;
  std::string csv_;
};

}  // namespace quorvane
