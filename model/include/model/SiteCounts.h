#pragma once

#include <array>

#include "model/LatticeModel.h"

namespace quorvane {

/// How many sites each pixel type holds; 0 for types that a system does not have.
using SiteCounts = std::array<int, kMaxPixelTypes>;

SiteCounts countSites(const LatticeModel& model);

/// The share of all sites that a type holds, 0 to 1; 0 where there are no sites or no such type.
double shareOfSites(const SiteCounts& counts, int type);

}  // namespace quorvane
