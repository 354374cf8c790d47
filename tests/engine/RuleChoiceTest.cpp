#include <gtest/gtest.h>

#include <set>

#include "EngineTest.h"

namespace quorvane {
namespace {

/// Which rule of a row an attempt uses. Rule k flips the site (2, 2) of type 0 to type k + 1.
class RuleChoice : public EngineTest {
 protected:
  RuleChoice() { system.numTypes = 10; }

  void addFlips(int count) {
    for (int k = 0; k < count; ++k) addRule(kIrreversible, 0, k + 1);
  }

  int chosen() {
    lattice[2][2] = 0;
    attempt(2, 2);
    return lattice[2][2] - 1;
  }

  void disable(int rule, int flag = 1) { system.ruleDisabled[rule] = flag; }

  /// The number of draws until each of n positions has been drawn.
  static int drawsToSeeAll(int n) {
    ForeseenDraws next;
    std::set<int> seen;
    int draws = 0;
    for (; static_cast<int>(seen.size()) < n; ++draws) seen.insert(next.whole(n));
    return draws;
  }
};

TEST_F(RuleChoice, OfATypeWithoutRulesDrawsNothing) {
  addRule(kIrreversible, 1, 0);
  EXPECT_EQ(drawsMadeBy([this] { attempt(2, 2); }), 0);
  EXPECT_EQ(sitesOfType(0), 25);
}

TEST_F(RuleChoice, OfARowOfNegativeLengthDrawsNothing) {
  addFlips(1);
  system.accessibleCount[0] = -1;
  EXPECT_EQ(drawsMadeBy([this] { attempt(2, 2); }), 0);
  EXPECT_EQ(sitesOfType(0), 25);
}

TEST_F(RuleChoice, UsesTheRuleAtTheDrawnPosition) {
  addFlips(5);
  for (int k = 0; k < 200; ++k) {
    const int position = ForeseenDraws().whole(5) - 1;
    ASSERT_EQ(chosen(), position);
  }
}

TEST_F(RuleChoice, UsesTheRowOfTheSitesType) {
  addRule(kIrreversible, 0, 1);
  addRule(kIrreversible, 4, 5);
  lattice[2][2] = 4;
  attempt(2, 2);
  EXPECT_EQ(lattice[2][2], 5);
}

TEST_F(RuleChoice, DrawsEvenForASingleRule) {
  addFlips(1);
  EXPECT_EQ(drawsMadeBy([this] { attempt(2, 2); }), 2);
}

TEST_F(RuleChoice, DrawsAgainUntilAnEnabledRuleComesUp) {
  addFlips(4);
  disable(0);
  disable(2);
  for (int k = 0; k < 200; ++k) {
    ForeseenDraws next;
    int draws = 0, rule = 0;
    do {
      rule = next.whole(4) - 1;
      ++draws;
    } while (rule % 2 == 0);
    int taken = -1;
    ASSERT_EQ(drawsMadeBy([&] { taken = chosen(); }), draws + 1);
    ASSERT_EQ(taken, rule);
  }
}

TEST_F(RuleChoice, EndsOnceEveryPositionHasBeenDrawnDisabled) {
  for (const int rules : {1, 2, 5, 9}) {
    addFlips(rules - system.numRules);
    for (int k = 0; k < rules; ++k) disable(k);
    for (int k = 0; k < 100; ++k) {
      const int expected = drawsToSeeAll(rules);
      ASSERT_EQ(drawsMadeBy([this] { attempt(2, 2); }), expected) << rules << " rules";
    }
  }
  EXPECT_EQ(sitesOfType(0), 25);
}

TEST_F(RuleChoice, EndsForAFullRowOfDisabledRules) {
  addFlips(1);
  disable(0);
  for (auto& entry : system.accessible[0]) entry = 0;
  system.accessibleCount[0] = kMaxRules;
  const int expected = drawsToSeeAll(kMaxRules);
  EXPECT_EQ(drawsMadeBy([this] { attempt(2, 2); }), expected);
}

TEST_F(RuleChoice, CountsPositionsAndNotRules) {
  addFlips(1);
  disable(0);
  system.accessible[0][1] = system.accessible[0][2] = 0;
  system.accessibleCount[0] = 3;
  for (int k = 0; k < 100; ++k) {
    const int expected = drawsToSeeAll(3);
    ASSERT_EQ(drawsMadeBy([this] { attempt(2, 2); }), expected);
  }
}

TEST_F(RuleChoice, UsesARuleWithTwoEntriesTwiceAsOften) {
  addFlips(2);
  system.accessible[0][2] = 1;
  system.accessibleCount[0] = 3;
  int second = 0;
  for (int k = 0; k < 9000; ++k) second += chosen() == 1 ? 1 : 0;
  EXPECT_NEAR(second, 6000, 200);
}

TEST_F(RuleChoice, SkipsRulesWithAnyFlagButZero) {
  addFlips(3);
  disable(0, 2);
  disable(1, -1);
  for (int k = 0; k < 100; ++k) ASSERT_EQ(chosen(), 2);
}

TEST_F(RuleChoice, UsesRulesBeyondTheNumberOfRules) {
  addFlips(2);
  system.numRules = 0;
  std::set<int> taken;
  for (int k = 0; k < 100; ++k) taken.insert(chosen());
  EXPECT_EQ(taken, (std::set<int>{0, 1}));
}

TEST_F(RuleChoice, SkipsEntriesThatAreNotRules) {
  addFlips(1);
  for (const int entry : {-1, kMaxRules, 1'000'000, -1'000'000}) {
    system.accessible[0][1] = entry;
    system.accessibleCount[0] = 2;
    for (int k = 0; k < 50; ++k) ASSERT_EQ(chosen(), 0);
  }
}

}  // namespace
}  // namespace quorvane
