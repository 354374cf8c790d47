#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "Neighbourhood.h"

namespace quorvane {

/// The types of a site's eight neighbours as one number: digit k, in base kTypes, is the type in direction k.
template <Type kTypes>
struct NeighbourhoodCode {
  static constexpr Type kNumTypes = kTypes;
  static constexpr std::array<std::uint32_t, kNumDirections + 1> kPowers = [] {
    std::array<std::uint32_t, kNumDirections + 1> powers = {1};
    for (std::size_t k = 1; k < powers.size(); ++k) powers[k] = powers[k - 1] * kTypes;
    return powers;
  }();
  static constexpr std::uint32_t kCount = kPowers[kNumDirections];

  /// Whether the neighbours have a code: all are of the first kTypes types.
  static bool exists(const Neighbours& neighbours) {
    constexpr Type limit = std::bit_ceil(kTypes);
    Type bits = 0;
    // Numbers are below a power of two if all their bits together are.
    for (const Type type : neighbours.type) bits |= type + (limit - kTypes);
    return bits < limit;
  }

  static std::uint32_t of(const Neighbours& neighbours) {
    std::uint32_t code = 0;
    for (int k = kNumDirections - 1; k >= 0; --k) code = code * kTypes + neighbours.type[k];
    return code;
  }

  static Neighbours neighboursOf(std::uint32_t code) {
    Neighbours neighbours;
    for (std::size_t k = 0; k < kNumDirections; ++k) neighbours.type[k] = code / kPowers[k] % kTypes;
    return neighbours;
  }

  /// The code after the neighbour in a direction has changed its type. Always a code: another thread may have
  /// changed that neighbour since the code was read, so that it was not of the type before.
  static std::uint32_t withChange(std::uint32_t code, std::size_t direction, Type before, Type after) {
    return std::min(code + (after - before) * kPowers[direction], kCount - 1);
  }
};

}  // namespace quorvane
