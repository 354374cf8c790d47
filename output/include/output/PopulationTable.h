#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "model/LatticeModel.h"

namespace quorvane {

/// How many sites each pixel type holds, as a CSV table that grows with the run. Lines end with a line feed;
/// the first one is `sweep` and the types' names, quoted as RFC 4180 says.
class PopulationTable {
 public:
  explicit PopulationTable(const LatticeModel& model);

  void addRow(const LatticeModel& model, std::int64_t sweep);
  /// What was added since the last take, whole rows.
  const std::string& csv() const { return csv_; }
  std::string take() { return std::exchange(csv_, {}); }

 private:
  std::string csv_;
};

}  // namespace quorvane
