#pragma once

#include <cassert>
#include <concepts>
#include <type_traits>
#include <utility>

#include "Acceptance.h"
#include "Action.h"
#include "Energies.h"
#include "engine/RandomSource.h"

namespace quorvane {

/// The draws of an attempt: real() is fRandReal(), whole() is 2^31 times that, below(n) is fRandInt(n) - 1,
/// and makeRoom() is called at least once every kMostDrawsOfAnAttempt draws.
template <class T>
concept DrawSource = requires(T draws, std::uint32_t n) {
  { draws.real() } -> std::same_as<double>;
  { draws.whole() } -> std::same_as<std::uint32_t>;
  { draws.below(n) } -> std::same_as<std::uint32_t>;
  draws.makeRoom();
};

/// The most draws of an attempt: two coordinates, the rule, and those of a swap, which draws most: for its
/// parameter, its acceptance and its direction. Drawing another rule calls makeRoom first.
inline constexpr int kDrawsOfASite = 2;
inline constexpr int kDrawsOfARule = 1;
inline constexpr int kMostDrawsOfAnAction = 3;
inline constexpr int kMostDrawsOfAnAttempt = kDrawsOfASite + kDrawsOfARule + kMostDrawsOfAnAction;

/// Energies with tables by neighbourhood, as FewTypes has them.
template <class T>
concept TabledEnergies = BondEnergies<T> &&
    requires(const T& energies, Type type, std::uint32_t number, const Neighbours& neighbours) {
  { energies.flip(type, number).numAccepted[number] } -> std::convertible_to<std::uint32_t>;
  { energies.bondsAt(type, number) } -> std::same_as<double>;
  { T::Code::of(neighbours) } -> std::same_as<std::uint32_t>;
};

/// The state that an attempt reads and changes.
template <DrawSource Draws, BondEnergies Energies, AcceptanceTest Acceptance>
struct AttemptContext {
  Lattice& lattice;
  Size size;
  std::uint32_t numTypes;
  Draws& draws;
  const Energies& energies;
  Acceptance& acceptance;

  Relaxed<std::int32_t>& at(Site site) const { return lattice[site.i][site.j]; }
  template <bool kWide>
  Neighbours neighboursOf(Site site) const {
    return kWide ? neighboursOnWide(site, size, lattice) : quorvane::neighboursOf(site, size, lattice);
  }
};

template <class Draws, class Energies, class Acceptance>
AttemptContext(Lattice&, Size, std::uint32_t, Draws&, const Energies&, Acceptance&)
    -> AttemptContext<Draws, Energies, Acceptance>;

/// A mask instead of a branch, since acceptance cannot be predicted. The result is written to the site in
/// either case, because a conditional address would delay the loads that follow.
inline std::int32_t chosen(bool accepted, Type ifNot, Type ifSo) {
  const Type mask = accepted ? ~Type{0} : 0;
  return static_cast<std::int32_t>(ifNot ^ ((ifNot ^ ifSo) & mask));
}

template <class Context>
inline constexpr bool kHasTables = TabledEnergies<std::remove_cvref_t<decltype(Context::energies)>>;

/// Makes the flip at a position of the row if it has a table, on a wide lattice. False, and nothing drawn, if
/// it has none or the site has a neighbour of a type that is not in use.
template <class Context>
bool flippedByTable(const Context& context, std::uint32_t position, Site site, Type current) {
  using Code = typename std::remove_cvref_t<decltype(context.energies)>::Code;
  const auto& flip = context.energies.flip(current, position);
  if (flip.numAccepted == nullptr) return false;
  const Neighbours neighbours = context.template neighboursOf<true>(site);
  if (!Code::exists(neighbours)) [[unlikely]]
    return false;
  const bool accepted = context.draws.whole() < flip.numAccepted[Code::of(neighbours)];
  context.at(site) = chosen(accepted, current, flip.final);
  return true;
}

template <bool kWide, bool kFacilitated, bool kEnergies, class Context>
void flip(const Context& context, const Action& action, Site site, Type current) {
  const Type final = action.finalType == Action::kRandomType ? context.draws.below(context.numTypes)
                                                             : static_cast<Type>(action.finalType);
  const double u = context.draws.real();
  bool accepted = action.parameter > u;
  // min(1, exp(-dE)) is at most 1, so the parameter alone rejects the flip. Returning early pays only if the
  // branch can be predicted.
  if (action.rare && !accepted) return;

  if constexpr (kFacilitated || kEnergies) {
    const Neighbours neighbours = context.template neighboursOf<kWide>(site);
    if constexpr (kFacilitated) accepted &= action.facilitatedBy(neighbours);
    if constexpr (kEnergies) {
      const Neighbours then = kWide ? neighbours : withChange(neighbours, site, context.size, site, final);
      const auto& energies = context.energies;
      const double before = energies.bonds(current, neighbours) + energies.field(current);
      const double after = energies.bonds(final, then) + energies.field(final);
      accepted &= context.acceptance.accepts(after - before, action.parameter, u);
    }
  }
  context.at(site) = chosen(accepted, current, final);
}

/// The energy of two neighbouring sites, in which their common bond counts twice.
template <BondEnergies Energies>
double pairEnergy(const Energies& energies, Type a, const Neighbours& ofA, Type b, const Neighbours& ofB) {
  return energies.bonds(a, ofA) + energies.bonds(b, ofB);
}

/// The energy difference of an exchange on a wide lattice whose neighbourhoods both have a code.
template <class Energies>
double tabledExchangeEnergy(const Energies& energies, Type typeA, const Neighbours& ofA, Type typeB,
                            const Neighbours& ofB, std::size_t direction) {
  using Code = typename Energies::Code;
  const std::uint32_t beforeA = Code::of(ofA), beforeB = Code::of(ofB);
  const std::uint32_t afterA = Code::withChange(beforeA, direction, typeB, typeA);
  const std::uint32_t afterB = Code::withChange(beforeB, kOpposite[direction], typeA, typeB);
  const double before = energies.bondsAt(typeA, beforeA) + energies.bondsAt(typeB, beforeB);
  return energies.bondsAt(typeB, afterA) + energies.bondsAt(typeA, afterB) - before;
}

/// The energy difference of an exchange on a wide lattice, where each site is the other's neighbour exactly
/// once, and not its own.
template <BondEnergies Energies>
double exchangeEnergyOnWide(const Energies& energies, Type typeA, const Neighbours& ofA, Type typeB,
                            const Neighbours& ofB, std::size_t direction) {
  Neighbours afterA = ofA, afterB = ofB;
  afterA.type[direction] = typeA;
  afterB.type[kOpposite[direction]] = typeB;
  const double before = pairEnergy(energies, typeA, ofA, typeB, ofB);
  return pairEnergy(energies, typeB, afterA, typeA, afterB) - before;
}

/// The same where the neighbours have no code. Not inlined, and with packed neighbours: an array that may be
/// changed would keep them in memory, also on the usual path.
template <BondEnergies Energies>
[[gnu::noinline]] double exchangeEnergyWithoutCode(const Energies& energies, Type typeA, PackedNeighbours ofA,
                                                   Type typeB, PackedNeighbours ofB, std::size_t direction) {
  return exchangeEnergyOnWide(energies, typeA, unpacked(ofA), typeB, unpacked(ofB), direction);
}

template <bool kWide, class Context>
double exchangeEnergy(const Context& context, Site a, Type typeA, Site b, Type typeB, std::size_t direction) {
  const auto& energies = context.energies;
  const Neighbours beforeA = context.template neighboursOf<kWide>(a);
  const Neighbours beforeB = context.template neighboursOf<kWide>(b);
  if constexpr (kWide && kHasTables<Context>) {
    using Code = typename std::remove_cvref_t<decltype(energies)>::Code;
    // Each site is a neighbour of the other, but another thread may have changed it since its type was read.
    const bool areInUse = typeA < Code::kNumTypes && typeB < Code::kNumTypes;
    if (Code::exists(beforeA) && Code::exists(beforeB) && areInUse) [[likely]]
      return tabledExchangeEnergy(energies, typeA, beforeA, typeB, beforeB, direction);
    return exchangeEnergyWithoutCode(energies, typeA, packed(beforeA), typeB, packed(beforeB), direction);
  } else if constexpr (kWide) {
    return exchangeEnergyOnWide(energies, typeA, beforeA, typeB, beforeB, direction);
  } else {
    Neighbours afterA = beforeA, afterB = beforeB;
    for (const auto& [site, type] : {std::pair(a, typeB), std::pair(b, typeA)}) {
      afterA = withChange(afterA, a, context.size, site, type);
      afterB = withChange(afterB, b, context.size, site, type);
    }
    const double before = pairEnergy(energies, typeA, beforeA, typeB, beforeB);
    return pairEnergy(energies, typeB, afterA, typeA, afterB) - before;
  }
}

/// The exchange with a random neighbour: always two draws.
template <bool kWide, bool kEnergies, class Context>
void exchange(const Context& context, const Action& action, Site a, Type typeA) {
  const double u = context.draws.real();
  const std::size_t direction = context.draws.below(kNumDirections);
  const Site b = neighbourSite(a, context.size, direction);
  const Type typeB = typeOf(context.at(b));
  if (!action.swapsWith(typeB)) return;

  bool accepted = true;
  if constexpr (kEnergies) {
    const double dE = exchangeEnergy<kWide>(context, a, typeA, b, typeB, direction);
    accepted = context.acceptance.accepts(dE, 1.0, u);
  }
  context.at(a) = chosen(accepted, typeA, typeB);
  context.at(b) = chosen(accepted, typeB, typeA);
}

template <bool kWide, bool kEnergies, class Context>
void swap(const Context& context, const Action& action, Site site, Type current) {
  if (action.parameter > context.draws.real()) exchange<kWide, kEnergies>(context, action, site, current);
}

/// Performs the action; at most kMostDrawsOfAnAction draws. On a wide lattice every site has eight different
/// neighbours.
template <bool kWide, class Context>
void perform(const Context& context, const Action& action, Site site, Type current) {
  switch (action.kind) {
    case ActionKind::kNone:
      return;
    case ActionKind::kFreeSwap:
      return swap<kWide, false>(context, action, site, current);
    case ActionKind::kSwap:
      return swap<kWide, true>(context, action, site, current);
    case ActionKind::kFreeFlip:
      return flip<kWide, false, false>(context, action, site, current);
    case ActionKind::kFacilitatedFreeFlip:
      return flip<kWide, true, false>(context, action, site, current);
    case ActionKind::kFlip:
      return flip<kWide, false, true>(context, action, site, current);
    case ActionKind::kFacilitatedFlip:
      return flip<kWide, true, true>(context, action, site, current);
  }
  assert(false);
  __builtin_unreachable();  // Drops the jump table's bounds check. A kind without a case does not compile.
}

/// Draws positions of a row after an unusable one until one is usable; -1 once every position has come up
/// unusable.
template <DrawSource Draws, std::predicate<std::uint32_t> IsUsable>
int drawAnother(Draws& draws, std::uint32_t length, std::uint32_t position, IsUsable&& isUsable) {
  assert(length > 0 && length <= kMaxRules && position < length);
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
