#pragma once

#include <array>
#include <cstddef>

#include "engine/Limits.h"

namespace quorvane {

/// A step to a neighbouring site: -1, 0 or 1 along either side of the lattice.
struct Step {
  std::ptrdiff_t i, j;
  constexpr bool operator==(const Step&) const = default;
};

/// The eight directions, in the order of energy sums and of draws; direction dir, 1 to 8, has the index
/// dir - 1.
inline constexpr std::array<Step, kNumDirections> kSteps{
    {{1, 0}, {0, 1}, {-1, 0}, {0, -1}, {1, 1}, {-1, 1}, {1, -1}, {-1, -1}}};

/// The index of the opposite direction, for the index of each direction.
inline constexpr std::array<std::size_t, kNumDirections> kOpposite = [] {
  std::array<std::size_t, kNumDirections> opposite{};
  for (std::size_t k = 0; k < kSteps.size(); ++k)
    while (kSteps[opposite[k]] != Step{-kSteps[k].i, -kSteps[k].j}) ++opposite[k];
  return opposite;
}();

}  // namespace quorvane
