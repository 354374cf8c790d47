#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "measure/Snapshot.h"

namespace quorvane {

/// The number of sites of each type in use.
std::vector<std::int64_t> countsOf(const Snapshot& snapshot);

/// True if there are two types and every site holds one of them. Where one is missing the other one is, so
/// both have the same correlations, to the bit.
bool areComplementary(const std::vector<std::int64_t>& counts, const Snapshot& snapshot);

/// "count" and type 3 is "count_3".
std::string columnOf(const char* quantity, int type);

}  // namespace quorvane
