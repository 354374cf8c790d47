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
void FewTypes<kTypes>::compute() {
  for (std::uint32_t code = 0; code < Code::kCount; ++code) {
    const Neighbours neighbours = Code::neighboursOf(code);
    for (Type type = 0; type < kTypes; ++type) {
      bonds_[type][code] = bonds(type, neighbours);
      const Action* row = actions_.row(type);
      for (const Action* action = row; action < row + actions_.length(type); ++action)
        if (action->flipsToGivenType())
          numAccepted_[actions_.numberOf(*action)][code] = computeNumAccepted(*action, type, neighbours);
    }
  }
}

/// The conditions of flip() in Attempt.h, each solved for the draw.
template <Type kTypes>
std::uint32_t FewTypes<kTypes>::computeNumAccepted(const Action& flip, Type current,
                                                   const Neighbours& neighbours) const {
  if (flip.isFacilitated() && !flip.facilitatedBy(neighbours)) return 0;
  const std::uint32_t byParameter = numBelow(flip.parameter);
  if (!flip.hasEnergies()) return byParameter;
  const auto final = static_cast<Type>(static_cast<std::uint8_t>(flip.finalType));
  const double before = bonds(current, neighbours) + field(current);
  const double after = bonds(final, neighbours) + field(final);
  return std::min(byParameter, numBelow(flip.parameter * acceptance(after - before)));
}

template <Type kTypes>
std::uint32_t FewTypes<kTypes>::numAcceptedAmongMany(const Action& flip, Type current,
                                                     PackedNeighbours neighbours) const {
  return computeNumAccepted(flip, current, unpacked(neighbours));
}

template class FewTypes<2>;

}  // namespace quorvane
