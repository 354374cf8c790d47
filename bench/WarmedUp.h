#pragma once

#include "reference/Cases.h"

namespace quorvane {

/// Attempts of one sweep of a typical system.
inline constexpr int kAttempts = 254 * 254 + 1;

/// A typical system after thirty sweeps, when its lattice no longer looks like the random start. Both engines
/// are measured from there with the same draws, so they go through the same states.
const reference::System& warmedUp(const reference::Case& typical);

}  // namespace quorvane
