#include "Action.h"

#include <algorithm>
#include <cassert>

#include "engine/RuleKinds.h"

namespace quorvane {
namespace {

constexpr int kAnyType = -1;

std::uint32_t partners(int current, int target, const PerTypeInt& immobile) {
  std::uint32_t types = 0;
  if (immobile[current] != 0) return types;
  for (int type = 0; type < kMaxPixelTypes; ++type) {
    // Exchanging equal types changes nothing, so they need no attempt.
    const bool differs = type != current;
    if (differs && immobile[type] == 0 && (target == kAnyType || type == target)) types |= 1u << type;
  }
  return types;
}

/// The type itself counts, and each type in use that masquerades as it.
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

Action flipAction(int rule, int finalType, int numTypes, bool energies, const RuleArrays& rules) {
  assert(finalType >= kAnyType && finalType < kMaxPixelTypes);
  // Eight neighbours that count twice at most never reach it.
  constexpr int unreachable = 2 * kNumDirections + 1;
  const int needed = rules.ruleFac[rule][0];
  const double parameter = rules.ruleParameter[rule];
  return {.parameter = parameter,
          .typeBits = facilitationCounts(rules.ruleFac[rule][1], numTypes, rules.masquerade),
          .kind = flipKind(needed > 0, energies),
          .finalType = static_cast<std::int8_t>(finalType),
          .needed = static_cast<std::int8_t>(std::clamp(needed, 0, unreachable)),
          // Below this probability the early exit is predicted well enough to pay.
          .rare = parameter < 0.2};
}

/// A type that is no kind acts as a swap. So does an interaction, which a row names only by accident.
RuleEffect effectOf(int ruleType) {
  const RuleKind* kind = ruleKind(ruleType);
  return kind ? kind->effect : RuleEffect::kSwap;
}

}  // namespace

int reversibleEnd(int current, int endA, int endB) {
  const bool atAnEnd = current == endA || current == endB;
  if (endA == kAnyType) return endB == kAnyType || atAnEnd ? kAnyType : endB;
  if (endB == kAnyType) return atAnEnd ? kAnyType : endA;
  return current == endA ? endB : endA;
}

Action swapAction(int current, int target, bool energies, const PerTypeInt& immobile) {
  return {.typeBits = partners(current, target, immobile),
          .kind = energies ? ActionKind::kSwap : ActionKind::kFreeSwap};
}

Action actionOf(int rule, int current, int numTypes, const RuleArrays& rules) {
  assert(rule >= 0 && rule < kMaxRules && current >= 0 && current < kMaxPixelTypes);
  const int endA = rules.ruleEndPoints[rule][0];
  const int endB = rules.ruleEndPoints[rule][1];
  const bool energies = rules.ruleIgnoreEnergy[rule] != 1;
  switch (effectOf(rules.ruleType[rule])) {
    case RuleEffect::kFlipToB:
      return flipAction(rule, endB, numTypes, energies, rules);
    case RuleEffect::kFlipToOtherEnd:
      return flipAction(rule, reversibleEnd(current, endA, endB), numTypes, energies, rules);
    case RuleEffect::kSwap:
    case RuleEffect::kPairEnergy:
      break;
  }
  Action action = swapAction(current, endB, energies, rules.immobile);
  action.parameter = rules.ruleParameter[rule];
  return action;
}

}  // namespace quorvane
