#pragma once

#include <ostream>
#include <span>
#include <string>

#include "Configurations.h"

namespace quorvane::validation {

/// A system small enough to enumerate, with its initial configuration.
struct SmallSystem {
  std::string name;         ///< for test names
  std::string description;  ///< for the page
  System system;
  Configuration start;
  /// The pair energies are not symmetric, so there is no energy.
  bool lopsided = false;
};

/// The name of a system in test names.
inline void PrintTo(const SmallSystem& small, std::ostream* out) { *out << small.name; }

std::span<const SmallSystem> smallSystems();
/// The system with a name.
const SmallSystem& smallSystem(const std::string& name);

/// The stationary weights of a system's configurations as derived on the page, not normalised: exp(-energy),
/// times, for each site, the number of rules in its type's row, if there are any.
std::vector<double> derivedWeights(const System& system);

/// The same as probabilities, 0 for configurations that cannot be reached from the start.
std::vector<double> derivedProbabilities(const SmallSystem& small, const std::vector<bool>& reachable);

}  // namespace quorvane::validation
