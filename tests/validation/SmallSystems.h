#pragma once

#include <ostream>
#include <span>
#include <string>

#include "Configurations.h"

namespace quorvane::validation {

/// A system small enough to enumerate, with the configuration that it starts in.
struct SmallSystem {
  std::string name;         ///< for ctest
  std::string description;  ///< for the page
  System system;
  Configuration start;
  /// The pair energies of some pair depend on the order of the two, so there is no energy.
  bool lopsided = false;
};

/// What stands for a system in the names of tests.
inline void PrintTo(const SmallSystem& small, std::ostream* out) { *out << small.name; }

std::span<const SmallSystem> smallSystems();
/// The one of a name.
const SmallSystem& smallSystem(const std::string& name);

/// The stationary weights of a system's configurations as derived in the page, before they are normalised:
/// exp(-energy), and for each site the number of rules in its type's row, where there are any.
std::vector<double> derivedWeights(const System& system);

/// The same as probabilities, with 0 where the start does not lead.
std::vector<double> derivedProbabilities(const SmallSystem& small, const std::vector<bool>& reachable);

}  // namespace quorvane::validation
