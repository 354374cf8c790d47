#include "FewTypes.h"

#include <algorithm>
#include <cmath>

#include "Acceptance.h"
#include "engine/RandomSource.h"

namespace quorvane {
namespace {

/// How many whole draws k satisfy p > k / 2^31; none if p is not a number. Scaling by a power of two is
/// exact.
std::uint32_t numBelow(double p) {
  return p > 0.0 ? static_cast<std::uint32_t>(std::ceil(std::min(p, 1.0) * RandomSource::maxran)) : 0;
}

}  // namespace

template <Type kTypes>
FewTypes<kTypes>::FewTypes(const ActionTable& actions, const EnergyTable& energies) : energies_(energies) {
  for (std::uint32_t code = 0; code < Code::kCount; ++code)
    for (Type type = 0; type < kTypes; ++type) bonds_[type][code] = bonds(type, Code::neighboursOf(code));

  numAccepted_.reserve(kMostTables * Code::kCount);  // The tables must not move.
  for (Type type = 0; type < kTypes; ++type)
    for (std::uint32_t position = 0; position < actions.length(type); ++position)
      flips_[type][position] = tableOf(actions.row(type)[position], type);
}

template <Type kTypes>
typename FewTypes<kTypes>::Flip FewTypes<kTypes>::tableOf(const Action& action, Type current) {
  // A rare flip is usually rejected before its neighbours are read.
  const bool isFull = numAccepted_.size() == numAccepted_.capacity();
  if (!action.flipsToGivenType() || action.rare || isFull) return {};
  const std::uint32_t* table = numAccepted_.data() + numAccepted_.size();
  for (std::uint32_t code = 0; code < Code::kCount; ++code)
    numAccepted_.push_back(computeNumAccepted(action, current, Code::neighboursOf(code)));
  return {.numAccepted = table, .final = static_cast<Type>(static_cast<std::uint8_t>(action.finalType))};
}

/// The conditions of flip() in Attempt.h, each solved for the draw.
template <Type kTypes>
std::uint32_t FewTypes<kTypes>::computeNumAccepted(const Action& flip, Type current,
                                                   const Neighbours& neighbours) const {
  if (flip.isFacilitated() && !flip.facilitatedBy(neighbours)) return 0;
  if (!flip.hasEnergies()) return numBelow(flip.parameter);
  const auto final = static_cast<Type>(static_cast<std::uint8_t>(flip.finalType));
  const double before = bonds(current, neighbours) + field(current);
  const double after = bonds(final, neighbours) + field(final);
  return numBelow(flip.parameter * acceptance(after - before));
}

template class FewTypes<2>;
template class FewTypes<3>;

}  // namespace quorvane
