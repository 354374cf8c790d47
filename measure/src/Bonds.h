#pragma once

#include <array>
#include <cstdint>

#include "measure/Snapshot.h"

namespace quorvane {

/// The bonds of a lattice: for each site those in four of the eight directions, (1, 0), (0, 1), (1, 1) and
/// (1, -1), wrapped; so each pair of neighbours once and 4 N in all.
///
/// On a lattice of side 2 two bonds join the same two sites. On one of side 1 a bond leads from a site to
/// itself.
struct Bonds {
  /// Bonds between types a <= b, at [a][b]; all other elements are 0.
  std::array<std::array<std::int64_t, kMaxPixelTypes>, kMaxPixelTypes> between = {};
  /// How many of the four bonds of a site lead to itself, the same for all sites: 0, 1 or 4.
  int toItself = 0;
};

Bonds bondsOf(const Snapshot& snapshot);

}  // namespace quorvane
