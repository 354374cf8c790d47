#pragma once

#include <array>

#include "model/ModelState.h"

namespace quorvane {

/// The number of entries in each pixel type's row of rules.
using RowCounts = std::array<int, kMaxPixelTypes>;

/// The entries of a rule in each row: one for each end that the rule's kind enters, so that a reversible flip
/// with overlapping ends has two. An end of kAnyPixelType enters the row of every type in use; any other end
/// enters its own type's row, in use or not. A rule of a type that is no kind has none.
RowCounts rowEntries(int ruleType, int endA, int endB, int numTypes);

}  // namespace quorvane
