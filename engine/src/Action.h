#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

#include "Neighbourhood.h"
#include "engine/SystemArrays.h"

namespace quorvane {

/// One kind for each specialised code path.
enum class ActionKind : std::int8_t {
  kNone,  ///< the rule is disabled, or the entry of the row is no rule
  kFreeSwap,
  kSwap,
  kFreeFlip,
  kFacilitatedFreeFlip,
  kFlip,
  kFacilitatedFlip,
};

/// A rule compiled for sites of one type: everything that an attempt needs of it. "Free" is without energies.
struct Action {
  static constexpr std::int8_t kRandomType = -1;

  double parameter = 0.0;
  /// For a swap one bit for each type: whether the neighbour may be of it. For a flip two bits for each type:
  /// how often a neighbour of it counts for facilitation, 0 to 2.
  std::uint32_t typeBits = 0;
  ActionKind kind = ActionKind::kNone;
  /// The type that a flip leads to, or kRandomType.
  std::int8_t finalType = 0;
  /// The sum of the neighbours' counts that a facilitated flip needs.
  std::int8_t needed = 0;
  /// True for a flip whose parameter alone rejects most attempts.
  bool rare = false;

  static_assert(2 * kMaxPixelTypes <= std::numeric_limits<decltype(typeBits)>::digits);
  static_assert(kMaxPixelTypes <= std::numeric_limits<decltype(finalType)>::max());
  static_assert(2 * kNumDirections + 1 <= std::numeric_limits<decltype(needed)>::max());

  bool operator==(const Action&) const = default;

  bool isFacilitated() const {
    return kind == ActionKind::kFacilitatedFreeFlip || kind == ActionKind::kFacilitatedFlip;
  }
  /// False for the kinds that are free.
  bool hasEnergies() const {
    return kind == ActionKind::kSwap || kind == ActionKind::kFlip || kind == ActionKind::kFacilitatedFlip;
  }
  bool flipsToGivenType() const {
    const bool flips = isFacilitated() || kind == ActionKind::kFreeFlip || kind == ActionKind::kFlip;
    return flips && finalType != kRandomType;
  }

  bool swapsWith(Type neighbour) const { return (typeBits >> neighbour & 1u) != 0; }
  bool facilitatedBy(const Neighbours& neighbours) const {
    std::uint32_t count = 0;
    for (const Type type : neighbours.type) count += typeBits >> (2 * type) & 3u;
    return static_cast<int>(count) >= needed;
  }
};

/// The length of a row, from the count that a model keeps of it.
inline std::uint32_t rowLength(int count) {
  return static_cast<std::uint32_t>(std::clamp(count, 0, kMaxRules));
}

/// The type that a reversible flip leads to, or -1 for a random one.
int reversibleEnd(int current, int endA, int endB);

/// True if the engine may draw the rule. While another thread removes a rule, an entry of a row may be no
/// rule.
inline bool usable(int rule, const PerRuleInt& disabled) {
  return rule >= 0 && rule < kMaxRules && disabled[rule] == 0;
}

/// A swap of a site of the current type with a neighbour of the target type, or of any type with -1.
Action swapAction(int current, int target, bool energies, const PerTypeInt& immobile);

/// The action of a usable rule on a site of the current type.
Action actionOf(int rule, int current, int numTypes, const RuleArrays& rules);

}  // namespace quorvane
