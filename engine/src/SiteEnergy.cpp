#include "Energies.h"
#include "engine/f_LMlattice.h"

namespace quorvane {

double fSiteNNEnergyLM(int i, int j, int imax, int jmax, const Lattice& lattice, const PairEnergies& J,
                       int substitute) {
  const Site site = siteAt(i, j);
  const Size size = sizeOf(imax, jmax);
  const Neighbours neighbours = neighboursOf(site, size, lattice);
  const LiveBonds energies{J};
  if (substitute == -1) return energies.bonds(typeOf(lattice[i][j]), neighbours);
  const auto type = static_cast<Type>(substitute);
  return energies.bonds(type, withChange(neighbours, site, size, site, type));
}

}  // namespace quorvane
