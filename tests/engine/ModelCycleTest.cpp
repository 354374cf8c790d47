#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "EngineTest.h"

namespace quorvane {
namespace {

/// The effect of each rule type on a site of type 0 at (2, 2) among sites of type 0.
class ModelCycle : public EngineTest {
 protected:
  ModelCycle() { system.numTypes = 5; }

  int attemptDraws() {
    return drawsMadeBy([this] { attempt(2, 2); });
  }
};

TEST_F(ModelCycle, AnIrreversibleFlipLeadsToEndB) {
  addRule(kIrreversible, 0, 3);
  EXPECT_EQ(attemptDraws(), 2);
  EXPECT_EQ(lattice[2][2], 3);
  EXPECT_EQ(sitesOfType(0), 24);
}

TEST_F(ModelCycle, AnIrreversibleFlipActsOnAnySiteWhoseRowHoldsIt) {
  const int rule = addRule(kIrreversible, 0, 3);
  system.accessible[1][0] = rule;
  system.accessibleCount[1] = 1;
  lattice[2][2] = 1;
  attempt(2, 2);
  EXPECT_EQ(lattice[2][2], 3);
}

TEST_F(ModelCycle, AnIrreversibleFlipToAnyTypeDrawsItBeforeTheAcceptance) {
  const int rule = addRule(kIrreversible, 0, kAny);
  system.ruleParameter[rule] = 0.5;
  int unchanged = 0;
  for (int k = 0; k < 500; ++k) {
    lattice[2][2] = 0;
    ForeseenDraws next;
    next.whole(1);
    const int final = next.whole(5) - 1;
    const bool accepted = 0.5 > next.real();
    ASSERT_EQ(attemptDraws(), 3);
    ASSERT_EQ(lattice[2][2], accepted ? final : 0);
    if (accepted && final == 0) ++unchanged;
  }
  EXPECT_GT(unchanged, 0);
}

TEST_F(ModelCycle, AReversibleFlipLeadsToTheOtherEnd) {
  addRule(kReversible, 0, 3);
  EXPECT_EQ(attemptDraws(), 2);
  EXPECT_EQ(lattice[2][2], 3);
  EXPECT_EQ(attemptDraws(), 2);
  EXPECT_EQ(lattice[2][2], 0);
}

TEST_F(ModelCycle, AReversibleFlipWithAnEndOfAnyTypeDrawsOnlyIfTheTypeIsRandom) {
  addRule(kReversible, 2, kAny);
  EXPECT_EQ(attemptDraws(), 2);
  EXPECT_EQ(lattice[2][2], 2);
  EXPECT_EQ(attemptDraws(), 3);
}

TEST_F(ModelCycle, AReversibleFlipBetweenAnyTypesDrawsTheTypeBeforeTheAcceptance) {
  const int rule = addRule(kReversible, kAny, kAny);
  system.ruleParameter[rule] = 0.5;
  for (int k = 0; k < 200; ++k) {
    const int before = lattice[2][2];
    ForeseenDraws next;
    next.whole(2);
    const int final = next.whole(5) - 1;
    const bool accepted = 0.5 > next.real();
    ASSERT_EQ(attemptDraws(), 3);
    ASSERT_EQ(lattice[2][2], accepted ? final : before);
  }
}

TEST_F(ModelCycle, AFlipActsOnImmobileTypesToo) {
  system.immobile[0] = system.immobile[3] = 1;
  addRule(kIrreversible, 0, 3);
  attempt(2, 2);
  EXPECT_EQ(lattice[2][2], 3);
}

TEST_F(ModelCycle, ASwapDrawsItsOwnAcceptanceAndThenThatOfTheMove) {
  addRule(kSwapping, 1, kAny);
  lattice[2][2] = 1;
  ForeseenDraws next;
  next.whole(1);
  next.real();
  next.real();
  const int dir = next.whole(8);
  EXPECT_EQ(attemptDraws(), 4);
  EXPECT_EQ(lattice[2][2], 0);
  EXPECT_EQ(lattice[2 + fn_neighbi(0, dir)][2 + fn_neighbj(0, dir)], 1);
}

TEST_F(ModelCycle, ASwapWithAParameterAtOrBelowItsDrawMakesNoMoveAndNoMoreDraws) {
  const int rule = addRule(kSwapping, 1, kAny);
  lattice[2][2] = 1;
  for (int k = 0; k < 50; ++k) {
    ForeseenDraws next;
    next.whole(1);
    system.ruleParameter[rule] = next.real();
    ASSERT_EQ(attemptDraws(), 2);
    ASSERT_EQ(lattice[2][2], 1);
  }
}

TEST_F(ModelCycle, ASwapWithAParameterBarelyAboveItsDrawIsMade) {
  const int rule = addRule(kSwapping, 1, kAny);
  for (int k = 0; k < 50; ++k) {
    fill(0);
    lattice[2][2] = 1;
    ForeseenDraws next;
    next.whole(1);
    system.ruleParameter[rule] = std::nextafter(next.real(), 2.0);
    ASSERT_EQ(attemptDraws(), 4);
    ASSERT_EQ(lattice[2][2], 0);
  }
}

TEST_F(ModelCycle, ASwapNeedsANeighbourOfEndB) {
  addRule(kSwapping, 1, 3);
  lattice[2][2] = 1;
  EXPECT_EQ(attemptDraws(), 4);
  EXPECT_EQ(lattice[2][2], 1);
  surround(2, 2, 8, 3);
  EXPECT_EQ(attemptDraws(), 4);
  EXPECT_EQ(lattice[2][2], 3);
}

TEST_F(ModelCycle, ASwapOfAnImmobileTypeDrawsAndMovesNothing) {
  addRule(kSwapping, 1, kAny);
  lattice[2][2] = 1;
  system.immobile[1] = 1;
  EXPECT_EQ(attemptDraws(), 4);
  EXPECT_EQ(lattice[2][2], 1);
}

TEST_F(ModelCycle, ASwapPassesOnWhetherToIgnoreEnergies) {
  const int rule = addRule(kSwapping, 1, kAny);
  const SmallestDraws draws;  // Direction 1, away from the second site of type 1.
  system.J[1][1] = -std::numeric_limits<double>::infinity();
  for (const int flag : {0, 2, 1}) {
    fill(0);
    lattice[2][2] = lattice[1][2] = 1;
    system.ruleIgnoreEnergy[rule] = flag;
    attempt(2, 2);
    EXPECT_EQ(lattice[3][2] == 1, flag == 1) << "flag " << flag;
  }
}

TEST_F(ModelCycle, ASwapNeedsNoFacilitation) {
  const int rule = addRule(kSwapping, 1, kAny);
  system.ruleFac[rule][0] = 8;
  system.ruleFac[rule][1] = 4;
  lattice[2][2] = 1;
  attempt(2, 2);
  EXPECT_EQ(lattice[2][2], 0);
}

TEST_F(ModelCycle, ARuleOfAnyOtherTypeInARowActsAsASwap) {
  for (const int type : {3, 4, -1, -100}) {
    fill(0);
    lattice[2][2] = 1;
    const int rule = addRule(kSwapping, 1, kAny);
    system.ruleType[rule] = type;
    EXPECT_EQ(attemptDraws(), 4) << "type " << type;
    EXPECT_EQ(lattice[2][2], 0) << "type " << type;
    EXPECT_EQ(sitesOfType(1), 1) << "type " << type;
  }
}

TEST_F(ModelCycle, AClearedRuleThatIsStillInARowDrawsAndNeverMoves) {
  const int rule = addRule(kIrreversible, 0, 1);
  system.ruleType[rule] = -1;
  system.ruleEndPoints[rule][0] = system.ruleEndPoints[rule][1] = kAny;
  system.ruleParameter[rule] = 0.0;
  lattice[1][1] = 2;
  for (int k = 0; k < 100; ++k) ASSERT_EQ(attemptDraws(), 2);
  EXPECT_EQ(lattice[2][2], 0);
}

}  // namespace
}  // namespace quorvane
