#pragma once

#include <concepts>
#include <utility>

#include "Neighbourhood.h"
#include "engine/SystemArrays.h"

namespace quorvane {

/// bonds(type, neighbours) is half the sum of the pair energies of a site of the type.
template <class T>
concept BondEnergies = requires(const T& energies, Type type, const Neighbours& neighbours) {
  { energies.bonds(type, neighbours) } -> std::same_as<double>;
};

/// Half a pair energy. Adding 0 turns -0 into 0, like a sum that starts with 0.
inline double halfBond(double pairEnergy) { return pairEnergy / 2.0 + 0.0; }

/// The half bonds of a site, added up in direction order.
template <class HalfBondWith>
double bondSum(const Neighbours& neighbours, HalfBondWith&& halfBondWith) {
  double energy = halfBondWith(neighbours.type[0]);
  for (int k = 1; k < kNumDirections; ++k) energy = halfBondWith(neighbours.type[k]) + energy;
  return energy;
}

/// The pair energies, read from a model each time.
struct LiveBonds {
  const PairEnergies& J;

  double bonds(Type type, const Neighbours& neighbours) const {
    const auto& row = J[type];
    return bondSum(neighbours, [&](Type neighbour) { return halfBond(row[neighbour]); });
  }
};

/// Pair energies and fields, read from a model each time.
struct LiveEnergies : LiveBonds {
  const PerTypeReal& fields;

  double field(Type type) const { return fields[type]; }
};

/// A copy of pair energies, halved, and of fields.
class EnergyTable {
 public:
  /// Whether anything differs from what was read before.
  bool read(const RuleArrays& rules) {
    bool changed = false;
    for (Type a = 0; a < kMaxPixelTypes; ++a) {
      for (Type b = 0; b < kMaxPixelTypes; ++b) changed |= replace(half_[a][b], halfBond(rules.J[a][b]));
      changed |= replace(field_[a], rules.field[a]);
    }
    return changed;
  }

  double bonds(Type type, const Neighbours& neighbours) const {
    const double* row = half_[type];
    return bondSum(neighbours, [row](Type neighbour) { return row[neighbour]; });
  }
  double field(Type type) const { return field_[type]; }

 private:
  static bool replace(double& old, double value) { return std::exchange(old, value) != value; }

  double half_[kMaxPixelTypes][kMaxPixelTypes] = {};
  double field_[kMaxPixelTypes] = {};
};

}  // namespace quorvane
