#pragma once

#include <memory>
#include <vector>

#include "model/LatticeModel.h"

namespace quorvane::validation {

/// A rule as a user makes it.
struct Rule {
  int type;
  int endA, endB;
  double parameter = 1.0;
  int facilitators = 0;
  int facilitatingType = 0;
  bool ignoresEnergy = false;
  bool disabled = false;
};

/// A compact description of a system, from which a test makes the model and, independently, its exact
/// behaviour.
struct System {
  int imax, jmax, types;
  std::vector<Rule> rules;
  double J[kMaxPixelTypes][kMaxPixelTypes] = {};
  double field[kMaxPixelTypes] = {};
  bool immobile[kMaxPixelTypes] = {};
  int masquerade[kMaxPixelTypes] = {-1, -1, -1, -1, -1, -1, -1, -1, -1, -1};

  int sites() const { return imax * jmax; }
  /// Attempts of a sweep: one more than there are sites.
  int attemptsPerSweep() const { return sites() + 1; }
};

/// A pair energy for both orders of two types.
void setPairEnergy(System& system, int a, int b, double energy);

/// The model with a random lattice, ready for sweep().
std::unique_ptr<LatticeModel> modelOf(const System& system);

void fill(LatticeModel& model, int type);
int sitesOfType(const LatticeModel& model, int type);

/// fModelCycle with the model's own arrays.
void attemptAt(LatticeModel& model, int i, int j);

}  // namespace quorvane::validation
