#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

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

  /// A flip to a given type. By the code of the neighbours: how many of the 2^31 values of a draw accept it,
  /// which are those from 0 on. Null for an entry of a row that has no table.
  struct Flip {
    const std::uint32_t* numAccepted = nullptr;
    Type final = 0;
  };

  /// Of actions and energies that outlive the object and do not change.
  FewTypes(const ActionTable& actions, const EnergyTable& energies);

  double bonds(Type type, const Neighbours& neighbours) const { return energies_.bonds(type, neighbours); }
  double field(Type type) const { return energies_.field(type); }

  /// bonds() of one of the first kTypes types, for neighbours that have a code.
  double bondsAt(Type type, std::uint32_t code) const { return bonds_[type][code]; }

  /// The entry at a position of a type's row.
  const Flip& flip(Type current, std::uint32_t position) const { return flips_[current][position]; }

 private:
  /// As many as fit a second-level cache.
  static constexpr std::size_t kMostTables = (std::size_t{1} << 18) / (sizeof(std::uint32_t) * Code::kCount);

  Flip tableOf(const Action& action, Type current);
  std::uint32_t computeNumAccepted(const Action& flip, Type current, const Neighbours& neighbours) const;

  const EnergyTable& energies_;
  double bonds_[kTypes][Code::kCount];
  Flip flips_[kMaxPixelTypes][ActionTable::kPlaces];
  std::vector<std::uint32_t> numAccepted_;
};

}  // namespace quorvane
