#pragma once

#include "Neighbourhood.h"
#include "engine/SystemArrays.h"

namespace quorvane {

/// One attempt at a site, on a lattice of any size, with the draws that fModelCycle documents. Reads rules
/// and energies from the arrays and draws from the process's source.
void attemptAt(Site site, Lattice& lattice, Size size, int numTypes, const RuleArrays& rules);

}  // namespace quorvane
