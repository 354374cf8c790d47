#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

#include "reference/System.h"

/// The systems on which the engine is compared with the literal engine and on which both are measured.
namespace quorvane::reference {

/// A named system and the number of attempts to compare.
struct Case {
  std::string name;
  int attempts;
  std::function<std::unique_ptr<System>()> make;
};

/// Systems typical of the application, each on 254 by 254 sites. These are measured.
std::span<const Case> typicalCases();

/// Systems for odd cases, on every size at which a site is its own neighbour or has a neighbour twice, and on
/// the largest. The caller chooses the number of random rule tables.
struct Size {
  int imax, jmax;
};
std::span<const Size> awkwardSizes();

/// A system with a random rule table, random types, energies and flags, including values that no sensible
/// system has (parameters below 0 and above 1, infinities, NaNs, denormals, rows that name deleted rules).
/// Each seed gives one system, the same on every machine.
std::unique_ptr<System> randomSystem(Size size, std::uint64_t seed);

}  // namespace quorvane::reference
