#include "Attempt.h"
#include "ProcessDraws.h"

namespace quorvane {

void fExchangeMove(int i, int j, int imax, int jmax, int targetType, Lattice& lattice,
                   const PerTypeInt& immobile, const PairEnergies& J, int ignoreEnergy) {
  const Site site = siteAt(i, j);
  const Size size = sizeOf(imax, jmax);
  const Type current = typeOf(lattice[i][j]);
  const bool withEnergies = ignoreEnergy != 1;
  const Action action = swapAction(static_cast<int>(current), targetType, withEnergies, immobile);
  const LiveBonds energies{J};
  ProcessDraws draws;
  ExactAcceptance acceptance;
  const AttemptContext context{lattice, size, 0, draws, energies, acceptance};
  if (!withEnergies)
    exchange<false, false>(context, action, site, current);
  else if (size.isWide())
    exchange<true, true>(context, action, site, current);
  else
    exchange<false, true>(context, action, site, current);
}

}  // namespace quorvane
