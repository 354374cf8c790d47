#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "EngineTest.h"

namespace quorvane {
namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

/// A flip of the site (2, 2) from type 0 to type 1, among eight neighbours of type 2.
class FlipAcceptance : public EngineTest {
 protected:
  FlipAcceptance() {
    system.numTypes = 3;
    fill(2);
    rule = addRule(kIrreversible, 0, 1);
  }

  /// Tries the flip once. Always two draws.
  bool flips() {
    lattice[2][2] = 0;
    EXPECT_EQ(drawsMadeBy([this] { attempt(2, 2); }), 2);
    return lattice[2][2] == 1;
  }

  /// The draw that decides the next flip.
  static double comingDraw() {
    ForeseenDraws next;
    next.whole(1);
    return next.real();
  }

  /// Flips are made exactly if the draw is below the probability, and both outcomes occur if both are
  /// possible.
  void expectProbability(double q) {
    int made = 0, refused = 0;
    for (int k = 0; k < 2000; ++k) {
      const double u = comingDraw();
      const bool flipped = flips();
      ASSERT_EQ(flipped, q > u) << "u = " << u << ", q = " << q;
      ++(flipped ? made : refused);
    }
    EXPECT_EQ(made > 0, q > 0.001);
    EXPECT_EQ(refused > 0, q < 0.999);
  }

  void setParameter(double p) { system.ruleParameter[rule] = p; }

  int rule;
};

TEST_F(FlipAcceptance, IsTheParameterWithoutEnergies) {
  for (const double p : {0.25, 0.75}) {
    setParameter(p);
    expectProbability(p);
  }
}

TEST_F(FlipAcceptance, OfAParameterOfOneOrMoreAlwaysFlips) {
  for (const double p : {1.0, 2.0, kInfinity}) {
    setParameter(p);
    expectProbability(p);
    const LargestDraws draws;
    lattice[2][2] = 0;
    attempt(2, 2);
    EXPECT_EQ(lattice[2][2], 1);
  }
}

TEST_F(FlipAcceptance, OfAParameterOfZeroOrLessNeverFlips) {
  for (const double p : {0.0, -0.0, -1.0, -kInfinity}) {
    setParameter(p);
    expectProbability(0.0);
    const SmallestDraws draws;
    lattice[2][2] = 0;
    attempt(2, 2);
    EXPECT_EQ(lattice[2][2], 0);
  }
}

TEST_F(FlipAcceptance, OfAParameterOfNaNNeverFlips) {
  setParameter(kNoNumber);
  expectProbability(0.0);
}

TEST_F(FlipAcceptance, RefusesADrawEqualToTheProbability) {
  for (int k = 0; k < 100; ++k) {
    system.ruleIgnoreEnergy[rule] = k % 2;
    setParameter(comingDraw());
    ASSERT_FALSE(flips());
  }
}

TEST_F(FlipAcceptance, AcceptsADrawBarelyBelowTheProbability) {
  for (int k = 0; k < 100; ++k) {
    setParameter(std::nextafter(comingDraw(), 2.0));
    ASSERT_TRUE(flips());
  }
}

TEST_F(FlipAcceptance, FallsWithTheChangeOfPairEnergy) {
  setPairEnergy(0, 2, 0.25);
  setPairEnergy(1, 2, 0.5);
  setParameter(0.9);
  expectProbability(0.9 * std::exp(-(8 * 0.25 - 8 * 0.125)));
}

TEST_F(FlipAcceptance, FallsWithTheChangeOfFieldEnergy) {
  system.field[0] = -0.5;
  system.field[1] = 0.5;
  setParameter(1.0);
  expectProbability(std::exp(-1.0));
}

TEST_F(FlipAcceptance, AddsPairAndFieldEnergy) {
  setPairEnergy(1, 2, 0.5);
  system.field[1] = -1.5;
  setParameter(1.0);
  expectProbability(std::exp(-0.5));
}

TEST_F(FlipAcceptance, DoesNotRiseAboveTheParameterWhenTheEnergyFalls) {
  system.field[0] = 3.0;
  setParameter(0.5);
  expectProbability(0.5);
}

TEST_F(FlipAcceptance, UsesTheEnergyOfARandomFinalType) {
  system.ruleEndPoints[rule][1] = kAny;
  system.field[1] = 1.0;
  system.field[2] = kInfinity;
  int made = 0, refused = 0;
  while (made < 100 || refused < 100) {
    lattice[2][2] = 0;
    ForeseenDraws next;
    next.whole(1);
    const int final = next.whole(3) - 1;
    const double u = next.real();
    attempt(2, 2);
    if (final == 2) {
      ASSERT_EQ(lattice[2][2], 0);
    } else if (final == 1) {
      ASSERT_EQ(lattice[2][2] == 1, std::exp(-1.0) > u);
      ++(lattice[2][2] == 1 ? made : refused);
    }
  }
}

TEST_F(FlipAcceptance, IgnoresEnergiesOnlyForAFlagOfOne) {
  system.field[1] = kInfinity;
  setParameter(0.5);
  system.ruleIgnoreEnergy[rule] = 1;
  expectProbability(0.5);
  for (const int flag : {0, 2, -1}) {
    system.ruleIgnoreEnergy[rule] = flag;
    expectProbability(0.0);
  }
}

TEST_F(FlipAcceptance, OfAnEnergyChangeOfNaNIsTheParameter) {
  setParameter(0.5);
  for (const double field : {kInfinity, kNoNumber}) {
    system.field[0] = system.field[1] = field;
    expectProbability(0.5);
  }
}

TEST_F(FlipAcceptance, OfAnEnergyChangeOfMinusInfinityIsTheParameter) {
  system.field[1] = -kInfinity;
  setParameter(0.5);
  expectProbability(0.5);
}

TEST_F(FlipAcceptance, OfAnInfiniteCostIsZeroEvenForADrawOfZero) {
  system.field[1] = kInfinity;
  setParameter(1.0);
  const SmallestDraws draws;
  lattice[2][2] = 0;
  attempt(2, 2);
  EXPECT_EQ(lattice[2][2], 0);
}

TEST_F(FlipAcceptance, OfAnInfiniteCostAndAnInfiniteParameterIsNaNAndNeverFlips) {
  system.field[1] = kInfinity;
  setParameter(kInfinity);
  expectProbability(0.0);
}

TEST_F(FlipAcceptance, OfAParameterAboveOneCompensatesForACost) {
  system.field[1] = 1.0;
  setParameter(2.0);
  expectProbability(2.0 * std::exp(-1.0));
}

TEST_F(FlipAcceptance, OnASingleSiteCountsTheEnergyOfTheFinalTypeWithItself) {
  resize(1, 1);
  system.J[1][1] = 0.25;
  setParameter(1.0);
  int made = 0;
  for (int k = 0; k < 1000; ++k) {
    lattice[0][0] = 0;
    const double u = comingDraw();
    attempt(0, 0);
    ASSERT_EQ(lattice[0][0] == 1, std::exp(-1.0) > u);
    made += lattice[0][0];
  }
  EXPECT_GT(made, 0);
  EXPECT_LT(made, 1000);
}

TEST_F(FlipAcceptance, ChangesNoOtherSite) {
  setParameter(1.0);
  EXPECT_TRUE(flips());
  EXPECT_EQ(sitesOfType(2), 24);
}

}  // namespace
}  // namespace quorvane
