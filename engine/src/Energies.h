#pragma once

#include "Neighbourhood.h"
#include "engine/Sweeper.h"

namespace quorvane {

/// Half a bond's constant. The 0 makes a -0 a 0, as the sum that begins with 0 would.
inline double halfBond(double constant) { return constant / 2.0 + 0.0; }

/// The half bonds of a site, added up in direction order.
template <class HalfBondWith>
double bondSum(const Neighbours& neighbours, HalfBondWith&& halfBondWith) {
  double energy = halfBondWith(neighbours.type[0]);
  for (int k = 1; k < kNumDirections; ++k) energy = halfBondWith(neighbours.type[k]) + energy;
  return energy;
}

/// The pair energies as they stand in a model.
struct LiveBonds {
  const PairEnergies& J;

  /// Half the sum of the bonds of a site that holds the type.
  double bonds(Type type, const Neighbours& neighbours) const {
    const auto& row = J[type];
    return bondSum(neighbours, [&](Type neighbour) { return halfBond(row[neighbour]); });
  }
};

/// All energies as they stand in a model.
struct LiveEnergies : LiveBonds {
  const PerTypeReal& fields;

  double field(Type type) const { return fields[type]; }
};

/// The energies as they stood when they were read, with every bond halved.
class EnergyTable {
 public:
  void read(const RuleArrays& rules) {
    for (Type a = 0; a < kMaxPixelTypes; ++a) {
      for (Type b = 0; b < kMaxPixelTypes; ++b) half_[a][b] = halfBond(rules.J[a][b]);
      field_[a] = rules.field[a];
    }
  }

  double bonds(Type type, const Neighbours& neighbours) const {
    const double* row = half_[type];
    return bondSum(neighbours, [row](Type neighbour) { return row[neighbour]; });
  }
  double field(Type type) const { return field_[type]; }

 private:
  double half_[kMaxPixelTypes][kMaxPixelTypes];
  double field_[kMaxPixelTypes];
};

}  // namespace quorvane
