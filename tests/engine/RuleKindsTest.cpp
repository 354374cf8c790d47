#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>

#include "engine/RuleKinds.h"

namespace quorvane {
namespace {

TEST(RuleKinds, AreFoundByTheirType) {
  for (const RuleKind& kind : kRuleKinds) EXPECT_EQ(ruleKind(kind.type), &kind) << kind.label;
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
