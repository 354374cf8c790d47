#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace quorvane {

/// The kinds of rules; the values are those of documents.
enum RuleType : std::int32_t {
  kIrreversibleFlip = 0,
  kReversibleFlip = 1,
  kSwap = 2,
  kPixelPixelInteraction = 3,
};
inline constexpr int kNumRuleTypes = 4;

/// What a rule does once it has been drawn.
enum class RuleEffect {
  kFlipToB,         ///< the site becomes end B
  kFlipToOtherEnd,  ///< the site becomes the end that it is not
  kSwap,            ///< the site is exchanged with a neighbour of type B
  kPairEnergy,      ///< none: the parameter is the energy of A next to B
};

struct RuleKind {
  RuleType type;
  const char* label;  ///< as the window shows it
  RuleEffect effect;
  bool inRowOfA, inRowOfB;  ///< sites of which end may draw the rule
  double minParameter, maxParameter;

  /// Flips can be facilitated; nothing else can.
  constexpr bool flips() const {
    return effect == RuleEffect::kFlipToB || effect == RuleEffect::kFlipToOtherEnd;
  }
  constexpr bool setsPairEnergy() const { return effect == RuleEffect::kPairEnergy; }
};

/// Everything that sets the kinds apart, in the order of their values. A flip or a swap has a probability as
/// parameter, a pair energy is in units of kT.
inline constexpr RuleKind kRuleKinds[] = {
    {.type = kIrreversibleFlip,
     .label = "Irreversible Flip",
     .effect = RuleEffect::kFlipToB,
     .inRowOfA = true,
     .inRowOfB = false,
     .minParameter = 0.0,
     .maxParameter = 1.0},
    {.type = kReversibleFlip,
     .label = "Reversible Flip",
     .effect = RuleEffect::kFlipToOtherEnd,
     .inRowOfA = true,
     .inRowOfB = true,
     .minParameter = 0.0,
     .maxParameter = 1.0},
    {.type = kSwap,
     .label = "Swap",
     .effect = RuleEffect::kSwap,
     .inRowOfA = true,
     .inRowOfB = false,
     .minParameter = 0.0,
     .maxParameter = 1.0},
    {.type = kPixelPixelInteraction,
     .label = "Pixel-Pixel Interaction",
     .effect = RuleEffect::kPairEnergy,
     .inRowOfA = false,
     .inRowOfB = false,
     .minParameter = -10.0,
     .maxParameter = 10.0},
};

/// The kind of a rule's type; null for a value that is none, which a document may hold.
constexpr const RuleKind* ruleKind(std::int32_t type) {
  return type >= 0 && type < kNumRuleTypes ? &kRuleKinds[type] : nullptr;
}

/// False also for a type that is no kind.
constexpr bool setsPairEnergy(std::int32_t type) {
  const RuleKind* kind = ruleKind(type);
  return kind && kind->setsPairEnergy();
}

static_assert(std::size(kRuleKinds) == kNumRuleTypes);
static_assert([] {
  for (int type = 0; type < kNumRuleTypes; ++type)
    if (ruleKind(type)->type != type) return false;
  return true;
}());

}  // namespace quorvane
