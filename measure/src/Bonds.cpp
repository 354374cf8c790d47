#include "Bonds.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr std::size_t kTypeBits = 4;
static_assert(kMaxPixelTypes <= 1 << kTypeBits);

/// How often a type has a neighbour of a type, in one direction. A table for each direction, since otherwise
/// an increment often waits for the former one to be stored.
using Table = std::array<std::uint32_t, std::size_t{1} << (2 * kTypeBits)>;

void add(Table& table, std::size_t type, std::size_t neighbour) { ++table[type << kTypeBits | neighbour]; }

}  // namespace

Bonds bondsOf(const Snapshot& snapshot) {
  Table across = {}, upwards = {}, rising = {}, falling = {};
  const auto jmax = static_cast<std::size_t>(snapshot.jmax);
  for (int i = 0; i < snapshot.imax; ++i) {
    const std::uint8_t* here = snapshot.column(i);
    const std::uint8_t* next = snapshot.column(i + 1 < snapshot.imax ? i + 1 : 0);
    for (std::size_t j = 0; j < jmax; ++j) {
      const std::size_t above = j + 1 < jmax ? j + 1 : 0, below = j > 0 ? j - 1 : jmax - 1;
      const std::size_t type = here[j];
      add(across, type, next[j]);
      add(upwards, type, here[above]);
      add(rising, type, next[above]);
      add(falling, type, next[below]);
    }
  }
  Bonds bonds;
  for (std::size_t a = 0; a < kMaxPixelTypes; ++a)
    for (std::size_t b = 0; b < kMaxPixelTypes; ++b) {
      const std::size_t place = a << kTypeBits | b;
      bonds.between[std::min(a, b)][std::max(a, b)] +=
          std::int64_t{across[place]} + upwards[place] + rising[place] + falling[place];
    }
  const bool oneAcross = snapshot.imax == 1, oneUpwards = snapshot.jmax == 1;
  bonds.toItself = oneAcross && oneUpwards ? 4 : oneAcross || oneUpwards ? 1 : 0;
  return bonds;
}

}  // namespace quorvane
