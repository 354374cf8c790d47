#pragma once

#include <cstdint>
#include <vector>

#include "measure/Snapshot.h"

namespace quorvane {

enum class Axis { kI, kJ };

/// The sites of a type as bits, for counting pairs of them.
class BitColumns {
 public:
  /// axis: along which pairs are to be counted.
  void read(const Snapshot& snapshot, int type, Axis axis);
  /// The number of sites of the type from which the site r steps along the axis, wrapped, is one too.
  /// r: 0 to the sites along the axis.
  std::int64_t pairsAt(int r) const;

 private:
  std::size_t steps_ = 0;            ///< sites along the axis
  std::size_t words_ = 0;            ///< 64 sites each across the axis
  std::vector<std::uint64_t> bits_;  ///< word w at a step is at [w * steps + step]
};

}  // namespace quorvane
