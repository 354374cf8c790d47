#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/Limits.h"

namespace quorvane {

class LatticeModel;

/// What observables read: the lattice with its pixel types and energies at one moment, as plain arrays.
///
/// Sites may hold types that are not in use: such a site is in no column of a type, but counts as a site, and
/// has the pair energies and the field that the tables hold for its type, as in the engine.
struct Snapshot {
  int imax = 0, jmax = 0;           ///< sites across and upwards, 1 to kMaxSide
  int numTypes = 0;                 ///< pixel types in use, 1 to kMaxPixelTypes
  std::vector<std::uint8_t> sites;  ///< type of site (i, j) at [i * jmax + j], below kMaxPixelTypes
  std::vector<std::string> names;   ///< of the types in use
  /// J, in kT. Only [a][b] with a <= b is read.
  std::array<std::array<double, kMaxPixelTypes>, kMaxPixelTypes> pairEnergies = {};
  std::array<double, kMaxPixelTypes> fields = {};  ///< h, in kT

  std::int64_t numSites() const { return std::int64_t{imax} * jmax; }
  const std::uint8_t* column(int i) const { return sites.data() + static_cast<std::ptrdiff_t>(i) * jmax; }
};

/// The present state of a model, between sweeps. Main thread only.
Snapshot snapshotOf(const LatticeModel& model);

/// Throws MeasureError if a size, a number of types or a site is outside its limits.
void requireValid(const Snapshot& snapshot);

}  // namespace quorvane
