#pragma once

#include <cstddef>
#include <cstdint>

#include "engine/f_LMlattice.h"

namespace quorvane {

/// A pixel type as an index: without a sign, so that it needs no extension to address an array.
using Type = std::uint32_t;

inline Type typeOf(const Relaxed<std::int32_t>& site) { return static_cast<Type>(site.load()); }

/// A coordinate with the two next to it on a ring of n sites.
struct Wrapped {
  std::size_t here, next, previous;
  Wrapped(std::size_t x, std::size_t n)
      : here(x), next(x + 1 < n ? x + 1 : 0), previous(x > 0 ? x - 1 : n - 1) {}
};

/// A site of the lattice.
struct Site {
  std::size_t i, j;
  bool operator==(const Site&) const = default;
};

/// The sites along both sides of the lattice, each 1 to kMaxSide.
struct Size {
  std::size_t imax, jmax;
  bool operator==(const Size&) const = default;

  /// True if every site has eight different neighbours, none of which is the site itself.
  bool isWide() const { return imax > 2 && jmax > 2; }
  /// True for a site of a wide lattice that is not at its edge. Below 0 wraps to the largest number.
  bool isInside(Site site) const { return site.i - 1 < imax - 2 && site.j - 1 < jmax - 2; }
};

inline Site siteAt(int i, int j) { return {static_cast<std::size_t>(i), static_cast<std::size_t>(j)}; }
inline Size sizeOf(int imax, int jmax) {
  return {static_cast<std::size_t>(imax), static_cast<std::size_t>(jmax)};
}

/// The pixel types of a site's eight neighbours; direction dir stands at index dir - 1.
struct Neighbours {
  Type type[kNumDirections];
};

inline Neighbours neighboursOf(const Wrapped& i, const Wrapped& j, const Lattice& lattice) {
  const auto& east = lattice[i.next];
  const auto& here = lattice[i.here];
  const auto& west = lattice[i.previous];
  return {{typeOf(east[j.here]), typeOf(here[j.next]), typeOf(west[j.here]), typeOf(here[j.previous]),
           typeOf(east[j.next]), typeOf(west[j.next]), typeOf(east[j.previous]), typeOf(west[j.previous])}};
}

inline Neighbours neighboursOf(Site site, Size size, const Lattice& lattice) {
  return neighboursOf(Wrapped(site.i, size.imax), Wrapped(site.j, size.jmax), lattice);
}

/// The same on a wide lattice.
inline Neighbours neighboursOnWide(Site site, Size size, const Lattice& lattice) {
  if (!size.isInside(site)) [[unlikely]]
    return neighboursOf(site, size, lattice);
  // Nearly every site is inside, where nothing has to wrap and the neighbours stand at fixed distances from
  // it in memory: the columns follow one another without a gap.
  constexpr int column = kMaxSide;
  const auto* here = &lattice[site.i][site.j];
  const auto at = [here](int distance) { return typeOf(here[distance]); };
  return {{at(column), at(1), at(-column), at(-1), at(column + 1), at(-column + 1), at(column - 1),
           at(-column - 1)}};
}

/// The site that one step in a direction leads to; the direction is given by its index, 0 to 7.
inline Site neighbourSite(Site site, Size size, std::size_t direction) {
  static constexpr std::ptrdiff_t stepI[kNumDirections] = {1, 0, -1, 0, 1, -1, 1, -1};
  static constexpr std::ptrdiff_t stepJ[kNumDirections] = {0, 1, 0, -1, 1, 1, -1, -1};
  const auto wrapped = [](std::size_t x, std::ptrdiff_t step, std::size_t n) {
    const std::ptrdiff_t next = static_cast<std::ptrdiff_t>(x) + step;
    const auto last = static_cast<std::ptrdiff_t>(n) - 1;
    return static_cast<std::size_t>(next < 0 ? last : next > last ? 0 : next);
  };
  return {wrapped(site.i, stepI[direction], size.imax), wrapped(site.j, stepJ[direction], size.jmax)};
}

/// The neighbours of a site as they are once another site, or the site itself, holds the given type. Here a
/// direction may lead back to the site, or two directions to the same, as they do on a lattice at most two
/// sites wide.
Neighbours withChange(Neighbours neighbours, Site site, Size size, Site changed, Type type);

/// How many of the neighbours fulfil a condition on their type.
template <class Condition>
int countNeighbours(const Neighbours& neighbours, Condition&& holds) {
  int count = 0;
  for (const Type type : neighbours.type) count += holds(static_cast<int>(type)) ? 1 : 0;
  return count;
}

}  // namespace quorvane
