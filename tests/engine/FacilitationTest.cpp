#include <gtest/gtest.h>

#include "EngineTest.h"

namespace quorvane {
namespace {

/// A flip of the site (2, 2) from type 0 to type 5, facilitated by type 1, among neighbours of type 4.
class Facilitation : public EngineTest {
 protected:
  Facilitation() {
    system.numTypes = 6;
    fill(4);
    rule = addRule(kIrreversible, 0, 5);
    need(0, 1);
  }

  void need(int number, int type) {
    system.ruleFac[rule][0] = number;
    system.ruleFac[rule][1] = type;
  }

  /// Whether the flip is made; only facilitation can refuse it. Always two draws.
  bool flips() {
    lattice[2][2] = 0;
    EXPECT_EQ(drawsMadeBy([this] { attempt(2, 2); }), 2);
    return lattice[2][2] == 5;
  }

  /// The largest number of needed neighbours with which the flip is still made.
  int count(int type) {
    int number = 0;
    for (need(1, type); number < 20 && flips(); need(number + 1, type)) ++number;
    return number;
  }

  int rule;
};

TEST_F(Facilitation, NeedsAtLeastTheNumberOfNeighbours) {
  for (int neighbours = 0; neighbours <= 8; ++neighbours) {
    surround(2, 2, neighbours, 1);
    for (int number = 0; number <= 9; ++number) {
      need(number, 1);
      ASSERT_EQ(flips(), neighbours >= number) << neighbours << " of " << number;
    }
  }
}

TEST_F(Facilitation, OfZeroOrLessAlwaysPasses) {
  for (const int number : {0, -1, -100}) {
    need(number, 1);
    EXPECT_TRUE(flips());
    need(number, kAny);
    EXPECT_TRUE(flips());
  }
}

TEST_F(Facilitation, RefusedLeavesTheSiteUnchanged) {
  need(1, 1);
  EXPECT_FALSE(flips());
  EXPECT_EQ(lattice[2][2], 0);
}

TEST_F(Facilitation, CountsTypesThatMasqueradeAsTheTypeAsWell) {
  surround(2, 2, 5, 2);
  surround(2, 2, 2, 1);
  EXPECT_EQ(count(1), 2);
  system.masquerade[2] = 1;
  EXPECT_EQ(count(1), 5);
  system.masquerade[4] = 1;
  EXPECT_EQ(count(1), 8);
}

TEST_F(Facilitation, StillCountsAMasqueradingTypeAsItself) {
  surround(2, 2, 3, 2);
  system.masquerade[2] = 1;
  EXPECT_EQ(count(2), 3);
}

TEST_F(Facilitation, CountsATypeThatMasqueradesAsItselfTwice) {
  surround(2, 2, 3, 1);
  system.masquerade[1] = 1;
  EXPECT_EQ(count(1), 6);
}

TEST_F(Facilitation, DoesNotFollowAMasqueradeOfAMasquerade) {
  surround(2, 2, 3, 3);
  system.masquerade[3] = 2;
  system.masquerade[2] = 1;
  EXPECT_EQ(count(1), 0);
}

TEST_F(Facilitation, UsesTheMasqueradesOfTypesInUseOnly) {
  surround(2, 2, 3, 2);
  system.masquerade[2] = 1;
  system.numTypes = 2;
  EXPECT_EQ(count(1), 0);
  EXPECT_EQ(count(2), 3);
}

TEST_F(Facilitation, ByTypeMinusOneCountsNeighboursThatMasqueradeAsNothing) {
  surround(2, 2, 3, 2);
  EXPECT_EQ(count(kAny), 8);
  system.masquerade[2] = 1;
  EXPECT_EQ(count(kAny), 5);
  system.masquerade[4] = 0;
  EXPECT_EQ(count(kAny), 0);
}

TEST_F(Facilitation, DoesNotCountTheSite) { EXPECT_EQ(count(0), 0); }

TEST_F(Facilitation, CountsTheSiteItselfOnAWidthOfOne) {
  resize(5, 1);
  fill(4);
  const auto flipsAtTwo = [this] {
    lattice[2][0] = 0;
    attempt(2, 0);
    return lattice[2][0] == 5;
  };
  need(2, 0);
  EXPECT_TRUE(flipsAtTwo());
  need(3, 0);
  EXPECT_FALSE(flipsAtTwo());
}

TEST_F(Facilitation, AppliesToReversibleFlips) {
  system.ruleType[rule] = kReversible;
  need(2, 1);
  EXPECT_FALSE(flips());
  surround(2, 2, 2, 1);
  EXPECT_TRUE(flips());
}

TEST_F(Facilitation, IsCheckedAfterTheDrawOfARandomType) {
  system.ruleEndPoints[rule][1] = kAny;
  need(1, 1);
  for (int k = 0; k < 50; ++k) {
    lattice[2][2] = 0;
    ASSERT_EQ(drawsMadeBy([this] { attempt(2, 2); }), 3);
    ASSERT_EQ(lattice[2][2], 0);
  }
}

}  // namespace
}  // namespace quorvane
