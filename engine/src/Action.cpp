#include "Action.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr int kIrreversibleFlip = 0;
constexpr int kReversibleFlip = 1;
constexpr int kAnyType = -1;

std::uint32_t partners(int current, int target, const PerTypeInt& immobile) {
  std::uint32_t types = 0;
  if (immobile[current] != 0) return types;
  for (int type = 0; type < kMaxPixelTypes; ++type) {
    // Between equal types the lattice stays as it is, whatever the acceptance.
    const bool differs = type != current;
    if (differs && immobile[type] == 0 && (target == kAnyType || type == target)) types |= 1u << type;
  }
  return types;
}

/// The type itself counts, and the types in use that masquerade as it.
std::uint32_t facilitationCounts(int facType, int numTypes, const PerTypeInt& masquerade) {
  std::uint32_t counts = 0;
  for (int type = 0; type < kMaxPixelTypes; ++type) {
    const bool masquerades = type < numTypes && masquerade[type] == facType;
    const unsigned count = (type == facType ? 1u : 0u) + (masquerades ? 1u : 0u);
    counts |= count << (2 * type);
  }
  return counts;
}

ActionKind flipKind(bool facilitated, bool energies) {
  if (energies) return facilitated ? ActionKind::kFacilitatedFlip : ActionKind::kFlip;
  return facilitated ? ActionKind::kFacilitatedFreeFlip : ActionKind::kFreeFlip;
}

}  // namespace

int reversibleEnd(int current, int endA, int endB) {
  const bool atAnEnd = current == endA || current == endB;
  if (endA == kAnyType) return endB == kAnyType || atAnEnd ? kAnyType : endB;
  if (endB == kAnyType) return atAnEnd ? kAnyType : endA;
  return current == endA ? endB : endA;
}

Action swapAction(int current, int target, bool energies, const PerTypeInt& immobile) {
  Action action;
  action.kind = energies ? ActionKind::kSwap : ActionKind::kFreeSwap;
  action.types = partners(current, target, immobile);
  return action;
}

Action actionOf(int rule, int current, int numTypes, const RuleArrays& rules) {
  // Eight neighbours that count twice at most can never be so many.
  constexpr int tooMany = 2 * kNumDirections + 1;
  const int type = rules.ruleType[rule];
  const int endA = rules.ruleEndPoints[rule][0];
  const int endB = rules.ruleEndPoints[rule][1];
  const bool energies = rules.ruleIgnoreEnergy[rule] != 1;
  const bool isFlip = type == kIrreversibleFlip || type == kReversibleFlip;
  Action action = isFlip ? Action{} : swapAction(current, endB, energies, rules.immobile);
  action.parameter = rules.ruleParameter[rule];
  if (!isFlip) return action;
  const int needed = rules.ruleFac[rule][0];
  action.kind = flipKind(needed > 0, energies);
  action.types = facilitationCounts(rules.ruleFac[rule][1], numTypes, rules.masquerade);
  action.final =
      static_cast<std::int8_t>(type == kReversibleFlip ? reversibleEnd(current, endA, endB) : endB);
  action.needed = static_cast<std::int8_t>(std::clamp(needed, 0, tooMany));
  // Below this the branch that ends a refused attempt early is predicted well enough to be worth it.
  action.rare = action.parameter < 0.2;
  return action;
}

}  // namespace quorvane
