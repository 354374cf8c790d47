#pragma once

#include <cstdint>

#include "ActionTable.h"
#include "Energies.h"
#include "NeighbourhoodCode.h"

namespace quorvane {

/// What follows from the types of a site's neighbours, for each of their kTypes^8 combinations: the bond
/// energy of the site and, for each flip to a given type, the draws that accept it. A lattice may also hold
/// types that are not in use; for a neighbourhood with one of them nothing has been computed beforehand.
template <Type kTypes>
class FewTypes {
 public:
  using Code = NeighbourhoodCode<kTypes>;

  FewTypes(const ActionTable& actions, const EnergyTable& energies)
      : actions_(actions), energies_(energies) {}

  /// To be called when the actions or the energies have changed.
  void compute();

  double bonds(Type type, const Neighbours& neighbours) const { return energies_.bonds(type, neighbours); }
  double field(Type type) const { return energies_.field(type); }

  /// bonds() of one of the first kTypes types, for neighbours that have a code.
  double bondsAt(Type type, std::uint32_t code) const { return bonds_[type][code]; }

  /// How many of the 2^31 values of a draw accept a flip to the action's final type: those from 0 on.
  std::uint32_t numAccepted(const Action& flip, Type current, const Neighbours& neighbours) const {
    if (!Code::exists(neighbours) || current >= kTypes) [[unlikely]]
      return numAcceptedAmongMany(flip, current, packed(neighbours));
    return numAccepted_[actions_.numberOf(flip)][Code::of(neighbours)];
  }

 private:
  std::uint32_t computeNumAccepted(const Action& flip, Type current, const Neighbours& neighbours) const;
  /// The same, not inlined. A reference to the neighbours would keep them in memory, also on the usual path.
  std::uint32_t numAcceptedAmongMany(const Action& flip, Type current, PackedNeighbours neighbours) const;

  const ActionTable& actions_;
  const EnergyTable& energies_;
  double bonds_[kTypes][Code::kCount] = {};
  std::uint32_t numAccepted_[kTypes * ActionTable::kPlaces][Code::kCount] = {};
};

}  // namespace quorvane
