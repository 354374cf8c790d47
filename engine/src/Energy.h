#pragma once

#include <cmath>

#include "Neighbourhood.h"

namespace quorvane {

/// Half the bond constants of a site that holds the type, added up in direction order.
inline double halfBondSum(int type, const Neighbours& neighbours, const PairEnergies& J) {
  const auto& row = J[type];
  double energy = 0.0;
  for (const int neighbour : neighbours.type) energy = row[neighbour] / 2.0 + energy;
  return energy;
}

/// min(1, exp(-dE)), with an exponential that is not a number counting as 1.
inline double acceptance(double dE) {
  // At or below 0 the exponential is at least 1, and the comparison is false for a dE that is no number.
  return dE > 0.0 ? std::exp(-dE) : 1.0;
}

}  // namespace quorvane
