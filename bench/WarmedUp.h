#pragma once

#include "reference/Cases.h"

namespace quorvane {

/// Attempts of one sweep of a typical system.
inline constexpr int kAttempts = 254 * 254 + 1;

/// A typical system after thirty sweeps, so that its lattice looks as it does most of the time, and not as it
/// was filled. All sides are measured from there with the same draws, and so go through the same lattices.
const reference::System& warmedUp(const reference::Case& typical);

}  // namespace quorvane
