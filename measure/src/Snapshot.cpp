#include "measure/Snapshot.h"

#include <algorithm>

#include "measure/MeasureError.h"
#include "model/LatticeModel.h"

namespace quorvane {
namespace {

// The arrays of a snapshot hold what the model holds, whether the type is in use or not.
void copyEnergies(const LatticeModel& model, Snapshot& snapshot) {
  for (int a = 0; a < kMaxPixelTypes; ++a) {
    const auto type = static_cast<std::size_t>(a);
    snapshot.fields[type] = model.getPixelField(a);
    for (int b = 0; b < kMaxPixelTypes; ++b)
      snapshot.pairEnergies[type][static_cast<std::size_t>(b)] = model.getPixelIntConstant(a, b);
  }
}

void requireWithin(int value, int most, const char* what) {
  if (value < 1 || value > most)
    throw MeasureError("a lattice to measure has " + std::to_string(value) + " " + what + "; 1 to " +
                       std::to_string(most) + " are possible");
}

}  // namespace

Snapshot snapshotOf(const LatticeModel& model) {
  Snapshot snapshot;
  snapshot.imax = model.getIMax();
  snapshot.jmax = model.getJMax();
  snapshot.numTypes = model.getNumPixelTypes();
  snapshot.sites.resize(static_cast<std::size_t>(snapshot.numSites()));
  auto* site = snapshot.sites.data();
  // A value that is no type at all must not become one when it is cut to eight bits.
  constexpr int noType = 255;
  for (int i = 0; i < snapshot.imax; ++i)
    for (int j = 0; j < snapshot.jmax; ++j) {
      const int type = model.varSiteValues[i][j];
      *site++ = static_cast<std::uint8_t>(type >= 0 && type < noType ? type : noType);
    }
  for (int t = 0; t < snapshot.numTypes; ++t) snapshot.names.push_back(model.getPixelName(t));
  copyEnergies(model, snapshot);
  return snapshot;
}

void requireValid(const Snapshot& snapshot) {
  requireWithin(snapshot.imax, kMaxSide, "sites across");
  requireWithin(snapshot.jmax, kMaxSide, "sites upwards");
  requireWithin(snapshot.numTypes, kMaxPixelTypes, "pixel types");
  if (snapshot.names.size() != static_cast<std::size_t>(snapshot.numTypes))
    throw MeasureError("a lattice to measure has " + std::to_string(snapshot.names.size()) + " names for " +
                       std::to_string(snapshot.numTypes) + " pixel types");
  if (snapshot.sites.size() != static_cast<std::size_t>(snapshot.numSites()))
    throw MeasureError("a lattice to measure has " + std::to_string(snapshot.sites.size()) +
                       " sites instead of " + std::to_string(snapshot.numSites()));
  // Unlike a search, this takes no time worth mentioning.
  std::uint8_t largest = 0;
  for (const std::uint8_t type : snapshot.sites) largest = std::max(largest, type);
  if (largest < kMaxPixelTypes) return;
  const auto index =
      std::find(snapshot.sites.begin(), snapshot.sites.end(), largest) - snapshot.sites.begin();
  throw MeasureError("site (" + std::to_string(index / snapshot.jmax) + ", " +
                     std::to_string(index % snapshot.jmax) + ") of a lattice to measure holds " +
                     std::to_string(largest) + ", which is no pixel type");
}

}  // namespace quorvane
