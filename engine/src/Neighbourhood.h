#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "engine/Directions.h"
#include "engine/f_LMlattice.h"

namespace quorvane {

/// A pixel type as an index. Unsigned, so that it addresses an array without sign extension.
using Type = std::uint32_t;

inline Type typeOf(const Relaxed<std::int32_t>& site) { return static_cast<Type>(site.load()); }

/// A coordinate and its two neighbours on a ring of n sites.
struct Wrapped {
  std::size_t here, next, previous;
  Wrapped(std::size_t x, std::size_t n)
      : here(x), next(x + 1 < n ? x + 1 : 0), previous(x > 0 ? x - 1 : n - 1) {}
  std::size_t after(std::ptrdiff_t step) const { return step == 0 ? here : step > 0 ? next : previous; }
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
  /// True for a site of a wide lattice that is not at its edge. A coordinate of 0 less 1 wraps to the largest
  /// number.
  bool isInside(Site site) const { return site.i - 1 < imax - 2 && site.j - 1 < jmax - 2; }
};

inline Site siteAt(int i, int j) { return {static_cast<std::size_t>(i), static_cast<std::size_t>(j)}; }
inline Size sizeOf(int imax, int jmax) {
  return {static_cast<std::size_t>(imax), static_cast<std::size_t>(jmax)};
}

/// The pixel types of a site's eight neighbours, by the index of their direction.
struct Neighbours {
  Type type[kNumDirections];
};

/// Neighbours in a register: four bits for each.
using PackedNeighbours = std::uint32_t;
static_assert(kMaxPixelTypes <= 16);

inline PackedNeighbours packed(const Neighbours& neighbours) {
  PackedNeighbours bits = 0;
  for (int k = 0; k < kNumDirections; ++k) bits |= neighbours.type[k] << (4 * k);
  return bits;
}
inline Neighbours unpacked(PackedNeighbours bits) {
  Neighbours neighbours;
  for (int k = 0; k < kNumDirections; ++k) neighbours.type[k] = bits >> (4 * k) & 15u;
  return neighbours;
}

/// The neighbours' types, each from a function of its step. Unrolled, so that every step is a constant.
template <class TypeAfter>
Neighbours neighboursBy(TypeAfter&& typeAfter) {
  return [&]<std::size_t... k>(std::index_sequence<k...>) { return Neighbours{{typeAfter(kSteps[k])...}}; }
  (std::make_index_sequence<kNumDirections>());
}

inline Neighbours neighboursOf(Site site, Size size, const Lattice& lattice) {
  const Wrapped i(site.i, size.imax), j(site.j, size.jmax);
  return neighboursBy([&](Step step) { return typeOf(lattice[i.after(step.i)][j.after(step.j)]); });
}

/// The type of a neighbour of a site that is not at an edge. The step leaves the inner array, which the
/// language leaves undefined; compilers treat the lattice as one block of memory. All eight neighbours then
/// share one base register, while lattice[i + 1][j] takes up to 6 % more instructions per attempt.
inline Type typeBeside(const Relaxed<std::int32_t>* site, Step step) {
  return typeOf(site[step.i * kMaxSide + step.j]);
}

/// The same on a wide lattice, where nearly every site is inside and no step has to be wrapped.
inline Neighbours neighboursOnWide(Site site, Size size, const Lattice& lattice) {
  if (!size.isInside(site)) [[unlikely]]
    return neighboursOf(site, size, lattice);
  const auto* here = &lattice[site.i][site.j];
  return neighboursBy([here](Step step) { return typeBeside(here, step); });
}

/// The neighbouring site in a direction, given by its index.
inline Site neighbourSite(Site site, Size size, std::size_t direction) {
  const auto wrapped = [](std::size_t x, std::ptrdiff_t step, std::size_t n) {
    const std::ptrdiff_t next = static_cast<std::ptrdiff_t>(x) + step;
    const auto last = static_cast<std::ptrdiff_t>(n) - 1;
    return static_cast<std::size_t>(next < 0 ? last : next > last ? 0 : next);
  };
  return {wrapped(site.i, kSteps[direction].i, size.imax), wrapped(site.j, kSteps[direction].j, size.jmax)};
}

/// The neighbours of a site after another site, or the site itself, has changed to the given type. Correct
/// also on lattices of at most two sites along a side, where a direction leads back to the site or two lead
/// to the same one.
Neighbours withChange(Neighbours neighbours, Site site, Size size, Site changed, Type type);

/// The number of neighbours whose type satisfies a condition.
template <class Condition>
int countNeighbours(const Neighbours& neighbours, Condition&& holds) {
  int count = 0;
  for (const Type type : neighbours.type) count += holds(static_cast<int>(type)) ? 1 : 0;
  return count;
}

}  // namespace quorvane
