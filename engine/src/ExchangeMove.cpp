#include "Energy.h"
#include "engine/f_LMlattice.h"
#include "engine/f_ran0.h"

namespace quorvane {
namespace {

/// A site with its type and its neighbours' types.
struct Surroundings {
  int type;
  Neighbours neighbours;
};

double energyOf(const Surroundings& a, const Surroundings& b, const PairEnergies& J) {
  return halfBondSum(a.type, a.neighbours, J) + halfBondSum(b.type, b.neighbours, J);
}

/// The neighbours of a site as they are once sites a and b hold the given types. On a lattice at most two
/// sites wide, a direction may lead back to the site itself, and two directions to the same site.
Neighbours neighboursAfter(Neighbours neighbours, Site site, int imax, int jmax, Site a, int typeOfA, Site b,
                           int typeOfB) {
  for (int dir = 1; dir <= kNumDirections; ++dir) {
    const Site neighbour = neighbourSite(site.i, site.j, imax, jmax, dir);
    if (neighbour == a) neighbours.type[dir - 1] = typeOfA;
    if (neighbour == b) neighbours.type[dir - 1] = typeOfB;
  }
  return neighbours;
}

/// The index of the opposite direction, for each direction's index.
constexpr int kOpposite[kNumDirections] = {2, 3, 0, 1, 7, 6, 5, 4};

}  // namespace

void fExchangeMove(int i, int j, int imax, int jmax, int targetType, Lattice& lattice,
                   const PerTypeInt& immobile, const PairEnergies& J, int ignoreEnergy) {
  const double u = fRandReal();
  const int dir = fRandInt(kNumDirections);

  const Site a{i, j};
  const Site b = neighbourSite(i, j, imax, jmax, dir);
  const int typeA = lattice[a.i][a.j];
  const int typeB = lattice[b.i][b.j];
  if (immobile[typeA] != 0 || immobile[typeB] != 0) return;
  if (targetType != -1 && typeB != targetType) return;
  if (typeA == typeB) return;  // The lattice stays as it is, whatever the acceptance.

  if (ignoreEnergy != 1) {
    const Surroundings beforeA{typeA, neighboursOf(a.i, a.j, imax, jmax, lattice)};
    const Surroundings beforeB{typeB, neighboursOf(b.i, b.j, imax, jmax, lattice)};
    Surroundings afterA{typeB, beforeA.neighbours};
    Surroundings afterB{typeA, beforeB.neighbours};
    if (imax > 2 && jmax > 2) {
      // Each is the other's neighbour exactly once, and neither its own.
      afterA.neighbours.type[dir - 1] = typeA;
      afterB.neighbours.type[kOpposite[dir - 1]] = typeB;
    } else {
      afterA.neighbours = neighboursAfter(beforeA.neighbours, a, imax, jmax, a, typeB, b, typeA);
      afterB.neighbours = neighboursAfter(beforeB.neighbours, b, imax, jmax, a, typeB, b, typeA);
    }
    const double dE = energyOf(afterA, afterB, J) - energyOf(beforeA, beforeB, J);
    if (!(acceptance(dE) > u)) return;
  }
  lattice[a.i][a.j] = typeB;
  lattice[b.i][b.j] = typeA;
}

}  // namespace quorvane
