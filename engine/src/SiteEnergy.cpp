#include "Energy.h"
#include "engine/f_LMlattice.h"

namespace quorvane {

double fSiteNNEnergyLM(int i, int j, int imax, int jmax, const Lattice& lattice, const PairEnergies& J,
                       int substitute) {
  const Neighbours neighbours = neighboursOf(i, j, imax, jmax, lattice);
  if (substitute == -1) return halfBondSum(lattice[i][j], neighbours, J);
  return halfBondSum(substitute, withSubstitute(neighbours, imax, jmax, substitute), J);
}

}  // namespace quorvane
