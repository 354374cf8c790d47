#pragma once

#include "engine/f_LMlattice.h"

namespace quorvane {

/// A coordinate with the two next to it on a ring of n sites.
struct Wrapped {
  int here, next, previous;
  Wrapped(int x, int n) : here(x), next(x + 1 < n ? x + 1 : 0), previous(x > 0 ? x - 1 : n - 1) {}
};

/// The pixel types of a site's eight neighbours; direction dir stands at index dir - 1.
struct Neighbours {
  int type[kNumDirections];
};

inline Neighbours neighboursOf(const Wrapped& i, const Wrapped& j, const Lattice& lattice) {
  const auto& east = lattice[i.next];
  const auto& here = lattice[i.here];
  const auto& west = lattice[i.previous];
  return {{east[j.here], here[j.next], west[j.here], here[j.previous], east[j.next], west[j.next],
           east[j.previous], west[j.previous]}};
}

inline Neighbours neighboursOf(int i, int j, int imax, int jmax, const Lattice& lattice) {
  return neighboursOf(Wrapped(i, imax), Wrapped(j, jmax), lattice);
}

/// The neighbours as they are when the site itself holds the substitute. Only across a side of one site does
/// a step lead back to the site itself.
inline Neighbours withSubstitute(Neighbours neighbours, int imax, int jmax, int substitute) {
  auto& type = neighbours.type;
  if (imax == 1) type[0] = type[2] = substitute;
  if (jmax == 1) type[1] = type[3] = substitute;
  if (imax == 1 && jmax == 1) type[4] = type[5] = type[6] = type[7] = substitute;
  return neighbours;
}

/// The site that one step in direction dir leads to.
struct Site {
  int i, j;
  bool operator==(const Site&) const = default;
};

inline Site neighbourSite(int i, int j, int imax, int jmax, int dir) {
  return {fn_pbc(fn_neighbi(i, dir), imax), fn_pbc(fn_neighbj(j, dir), jmax)};
}

/// How many of the neighbours fulfil a condition on their type.
template <class Condition>
int countNeighbours(const Neighbours& neighbours, Condition&& holds) {
  int count = 0;
  for (const int type : neighbours.type) count += holds(type) ? 1 : 0;
  return count;
}

}  // namespace quorvane
