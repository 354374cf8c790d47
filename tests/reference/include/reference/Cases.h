#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

#include "reference/System.h"

/// The one table of systems on which the engine is proved equal to the functions of this folder, and on which
/// both are measured.
namespace quorvane::reference {

/// A system with a name and the number of attempts that equality is tried for.
struct Case {
  std::string name;
  int attempts;
  std::function<std::unique_ptr<System>()> make;
};

/// Systems that stand for what is done with the application, each on 254 by 254 sites. These are measured.
std::span<const Case> typicalCases();

/// Systems made to be awkward, on every size at which a site is its own neighbour or meets another twice, and
/// on the largest. The number of random rule tables is chosen by the caller.
struct Size {
  int imax, jmax;
};
std::span<const Size> awkwardSizes();

/// A system with a random rule table, random types, energies and flags, among them values that no sensible
/// system has (parameters below 0 and above 1, infinities, not-a-numbers, denormals, rows that name deleted
/// rules). Each seed gives one system, the same on every machine.
std::unique_ptr<System> randomSystem(Size size, std::uint64_t seed);

}  // namespace quorvane::reference
