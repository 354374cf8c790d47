#pragma once

#include <utility>

#include "Action.h"
#include "Energies.h"

namespace quorvane {

/// What an action works with: the lattice, draws, energies and a way to tell whether a change is accepted.
/// Draws has real() and below(n), Energies has bonds and field, Chance has accepts.
template <class Draws, class Energies, class Chance>
struct Tools {
  Lattice& lattice;
  Size size;
  std::uint32_t numTypes;
  Draws& draws;
  const Energies& energies;
  Chance& chance;

  Relaxed<std::int32_t>& at(Site site) const { return lattice[site.i][site.j]; }
  template <bool kWide>
  Neighbours neighboursOf(Site site) const {
    return kWide ? neighboursOnWide(site, size, lattice) : quorvane::neighboursOf(site, size, lattice);
  }
};

template <class Draws, class Energies, class Chance>
Tools(Lattice&, Size, std::uint32_t, Draws&, const Energies&, Chance&) -> Tools<Draws, Energies, Chance>;

/// Looked up rather than branched to: whether an attempt is accepted cannot be predicted. What is written
/// depends on it and not where, because reads that follow would wait for an address.
inline std::int32_t chosen(bool which, Type ifNot, Type ifSo) {
  const Type outcomes[] = {ifNot, ifSo};
  return static_cast<std::int32_t>(outcomes[which ? 1 : 0]);
}

template <bool kWide, bool kFacilitated, bool kEnergies, class Tools>
void flip(const Tools& tools, const Action& action, Site site, Type current) {
  const Type final = action.final == Action::kRandomType ? tools.draws.below(tools.numTypes)
                                                         : static_cast<Type>(action.final);
  const double u = tools.draws.real();
  bool accepted = action.parameter > u;
  // The acceptance is at most 1, so a draw at or above the parameter refuses the flip whatever the energy.
  // But ending here pays only where the branch can be predicted.
  if (action.rare && !accepted) return;

  if constexpr (kFacilitated || kEnergies) {
    const Neighbours neighbours = tools.template neighboursOf<kWide>(site);
    if constexpr (kFacilitated) accepted &= action.facilitatedBy(neighbours);
    if constexpr (kEnergies) {
      const Neighbours then = kWide ? neighbours : withChange(neighbours, site, tools.size, site, final);
      const double before = tools.energies.bonds(current, neighbours) + tools.energies.field(current);
      const double after = tools.energies.bonds(final, then) + tools.energies.field(final);
      accepted &= tools.chance.accepts(after - before, action.parameter, u);
    }
  }
  tools.at(site) = chosen(accepted, current, final);
}

/// The energy of two neighbouring sites; their bond counts from both sides.
template <class Energies>
double pairEnergy(const Energies& energies, Type a, const Neighbours& ofA, Type b, const Neighbours& ofB) {
  return energies.bonds(a, ofA) + energies.bonds(b, ofB);
}

template <bool kWide, class Tools>
double exchangeEnergy(const Tools& tools, Site a, Type typeA, Site b, Type typeB, std::size_t direction) {
  /// The index of the opposite direction, for each direction's index.
  static constexpr std::size_t opposite[kNumDirections] = {2, 3, 0, 1, 7, 6, 5, 4};
  const Neighbours beforeA = tools.template neighboursOf<kWide>(a);
  const Neighbours beforeB = tools.template neighboursOf<kWide>(b);
  Neighbours afterA = beforeA;
  Neighbours afterB = beforeB;
  if constexpr (kWide) {
    // Each is the other's neighbour exactly once, and neither its own.
    afterA.type[direction] = typeA;
    afterB.type[opposite[direction]] = typeB;
  } else {
    for (const auto& [site, type] : {std::pair(a, typeB), std::pair(b, typeA)}) {
      afterA = withChange(afterA, a, tools.size, site, type);
      afterB = withChange(afterB, b, tools.size, site, type);
    }
  }
  const double before = pairEnergy(tools.energies, typeA, beforeA, typeB, beforeB);
  return pairEnergy(tools.energies, typeB, afterA, typeA, afterB) - before;
}

/// The exchange with a random neighbour: two draws whatever comes of them.
template <bool kWide, bool kEnergies, class Tools>
void exchange(const Tools& tools, const Action& action, Site a, Type typeA) {
  const double u = tools.draws.real();
  const std::size_t direction = tools.draws.below(kNumDirections);
  const Site b = neighbourSite(a, tools.size, direction);
  const Type typeB = typeOf(tools.at(b));
  if (!action.mayMeet(typeB)) return;

  bool accepted = true;
  if constexpr (kEnergies)
    accepted = tools.chance.accepts(exchangeEnergy<kWide>(tools, a, typeA, b, typeB, direction), 1.0, u);
  tools.at(a) = chosen(accepted, typeA, typeB);
  tools.at(b) = chosen(accepted, typeB, typeA);
}

template <bool kWide, bool kEnergies, class Tools>
void swap(const Tools& tools, const Action& action, Site site, Type current) {
  if (action.parameter > tools.draws.real()) exchange<kWide, kEnergies>(tools, action, site, current);
}

/// Does what the action says. On a wide lattice every site has eight different neighbours.
template <bool kWide, class Tools>
void perform(const Tools& tools, const Action& action, Site site, Type current) {
  switch (action.kind) {
    case ActionKind::kNone:
      return;
    case ActionKind::kFreeSwap:
      return swap<kWide, false>(tools, action, site, current);
    case ActionKind::kSwap:
      return swap<kWide, true>(tools, action, site, current);
    case ActionKind::kFreeFlip:
      return flip<kWide, false, false>(tools, action, site, current);
    case ActionKind::kFacilitatedFreeFlip:
      return flip<kWide, true, false>(tools, action, site, current);
    case ActionKind::kFlip:
      return flip<kWide, false, true>(tools, action, site, current);
    case ActionKind::kFacilitatedFlip:
      return flip<kWide, true, true>(tools, action, site, current);
    default:
      __builtin_unreachable();  // Spares the check that comes before the jump.
  }
}

/// Draws positions of a row after an unusable one until one is usable; -1 once every position has come up
/// unusable.
template <class Draws, class IsUsable>
int drawAnother(Draws& draws, std::uint32_t length, std::uint32_t position, IsUsable&& isUsable) {
  const std::uint64_t all = (std::uint64_t{1} << length) - 1;
  std::uint64_t tried = 0;
  do {
    tried |= std::uint64_t{1} << position;
    if (tried == all) return -1;
    draws.makeRoom();
    position = draws.below(length);
  } while (!isUsable(position));
  return static_cast<int>(position);
}

}  // namespace quorvane
