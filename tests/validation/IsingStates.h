#pragma once

#include <cstdint>
#include <vector>

namespace quorvane::validation {

/// How many of the 2^(L L) states of a periodic L by L Ising lattice with eight neighbours have n unlike
/// pairs of neighbours, at index n. Row by row, in integers. L: 3 to 6.
std::vector<std::int64_t> isingStates(int L);

struct EnergyMoments {
  double mean, variance;
};

/// Of the energy 2 K n, in kT, where states have the weight exp(-2 K n).
EnergyMoments energyMoments(const std::vector<std::int64_t>& states, double K);

}  // namespace quorvane::validation
