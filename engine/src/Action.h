#pragma once

#include <algorithm>
#include <cstdint>

#include "Neighbourhood.h"
#include "engine/Sweeper.h"

namespace quorvane {

/// What an action does, in so much detail that every step it leaves out is known before the attempt.
enum class ActionKind : std::int8_t {
  kNone,  ///< the rule is disabled, or is none
  kFreeSwap,
  kSwap,
  kFreeFlip,
  kFacilitatedFreeFlip,
  kFlip,
  kFacilitatedFlip,
};

/// A rule as it stands for one type of site: everything that one attempt asks of it. "Free" is without
/// energies.
struct Action {
  static constexpr std::int8_t kRandomType = -1;

  double parameter = 0.0;
  /// For a swap the neighbour's types that may be swapped, one bit for each. For a flip how many times a
  /// neighbour of each type counts for facilitation (0, 1 or 2), two bits for each.
  std::uint32_t types = 0;
  ActionKind kind = ActionKind::kNone;
  /// The type that a flip leads to, or kRandomType.
  std::int8_t final = 0;
  /// The sum of the neighbours' counts that a facilitated flip needs.
  std::int8_t needed = 0;
  /// True for a flip that the parameter alone mostly refuses.
  bool rare = false;

  bool mayMeet(Type neighbour) const { return (types >> neighbour & 1u) != 0; }
  bool facilitatedBy(const Neighbours& neighbours) const {
    std::uint32_t count = 0;
    for (const Type type : neighbours.type) count += types >> (2 * type) & 3u;
    return static_cast<int>(count) >= needed;
  }
};

/// The length of a row, from the count that a model keeps of it.
inline std::uint32_t rowLength(int count) {
  return static_cast<std::uint32_t>(std::clamp(count, 0, kMaxRules));
}

/// The type that a reversible flip leads to, or -1 for a random one.
int reversibleEnd(int current, int endA, int endB);

/// True if the engine may draw the rule. A row may name no rule while another thread is just removing it.
inline bool usable(int rule, const PerRuleInt& disabled) {
  return rule >= 0 && rule < kMaxRules && disabled[rule] == 0;
}

/// A swap of a site that holds the current type with a neighbour of the target type, or of any with -1.
Action swapAction(int current, int target, bool energies, const PerTypeInt& immobile);

/// The action of a usable rule on a site that holds the current type.
Action actionOf(int rule, int current, int numTypes, const RuleArrays& rules);

}  // namespace quorvane
