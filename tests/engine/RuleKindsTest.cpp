#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>
#include <tuple>

#include "engine/RuleKinds.h"

namespace quorvane {
namespace {

TEST(RuleKinds, AreFoundByTheirType) {
  for (const RuleKind& kind : kRuleKinds) EXPECT_EQ(ruleKind(kind.type), &kind) << kind.label;
}

/// The facts of the table, written a second time: tests of the window and of documents take them from the
/// table itself.
struct Fact {
  RuleType type;
  int code;
  const char* label;
  RuleEffect effect;
  bool inRowOfA, inRowOfB;
  double minParameter, maxParameter;
};

constexpr Fact kFacts[] = {
    {kIrreversibleFlip, 0, "Irreversible Flip", RuleEffect::kFlipToB, true, false, 0.0, 1.0},
    {kReversibleFlip, 1, "Reversible Flip", RuleEffect::kFlipToOtherEnd, true, true, 0.0, 1.0},
    {kSwap, 2, "Swap", RuleEffect::kSwap, true, false, 0.0, 1.0},
    {kPixelPixelInteraction, 3, "Pixel-Pixel Interaction", RuleEffect::kPairEnergy, false, false, -10.0,
     10.0},
};

TEST(RuleKinds, HaveTheCodesLabelsEffectsRowsAndRangesThatDocumentsAndTheGuideRelyOn) {
  for (const Fact& fact : kFacts) {
    EXPECT_EQ(static_cast<int>(fact.type), fact.code) << fact.label;
    const RuleKind* kind = ruleKind(fact.code);
    ASSERT_NE(kind, nullptr) << fact.label;
    EXPECT_EQ(kind->type, fact.type) << fact.label;
    EXPECT_STREQ(kind->label, fact.label);
    EXPECT_EQ(kind->effect, fact.effect) << fact.label;
    EXPECT_EQ(kind->inRowOfA, fact.inRowOfA) << fact.label;
    EXPECT_EQ(kind->inRowOfB, fact.inRowOfB) << fact.label;
    EXPECT_EQ(kind->minParameter, fact.minParameter) << fact.label;
    EXPECT_EQ(kind->maxParameter, fact.maxParameter) << fact.label;
  }
}

TEST(RuleKinds, FlipOrSetAPairEnergyByTheirEffect) {
  for (const auto& [type, flips, setsEnergy] : {std::tuple(kIrreversibleFlip, true, false),
                                                {kReversibleFlip, true, false},
                                                {kSwap, false, false},
                                                {kPixelPixelInteraction, false, true}}) {
    EXPECT_EQ(ruleKind(type)->flips(), flips) << type;
    EXPECT_EQ(ruleKind(type)->setsPairEnergy(), setsEnergy) << type;
    EXPECT_EQ(setsPairEnergy(type), setsEnergy) << type;
  }
  EXPECT_FALSE(setsPairEnergy(-1));
  EXPECT_FALSE(setsPairEnergy(kNumRuleTypes));
}

TEST(RuleKinds, OfAnyOtherValueIsNone) {
  for (const int value :
       {-1, kNumRuleTypes, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
    EXPECT_EQ(ruleKind(value), nullptr) << value;
}

TEST(RuleKinds, HaveLabelsOfTheirOwn) {
  std::set<std::string> labels;
  for (const RuleKind& kind : kRuleKinds) EXPECT_TRUE(labels.insert(kind.label).second) << kind.label;
}

TEST(RuleKinds, EnterARowUnlessTheySetAPairEnergy) {
  for (const RuleKind& kind : kRuleKinds)
    EXPECT_NE(kind.inRowOfA || kind.inRowOfB, kind.setsPairEnergy()) << kind.label;
}

TEST(RuleKinds, AllowAParameterOfZero) {
  for (const RuleKind& kind : kRuleKinds) {
    EXPECT_LE(kind.minParameter, 0.0) << kind.label;
    EXPECT_GT(kind.maxParameter, 0.0) << kind.label;
  }
}

}  // namespace
}  // namespace quorvane
