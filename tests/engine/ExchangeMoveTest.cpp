#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

#include "EngineTest.h"

namespace quorvane {
namespace {

/// One site of type 1 in the middle of sites of type 0.
class ExchangeMove : public EngineTest {
 protected:
  ExchangeMove() { lattice[2][2] = 1; }

  void move(int i, int j, int targetType = kAny, int ignoreEnergy = 0) {
    fExchangeMove(i, j, system.imax, system.jmax, targetType, lattice, system.immobile, system.J,
                  ignoreEnergy);
  }

  double energyOf(int i, int j) const {
    return fSiteNNEnergyLM(i, j, system.imax, system.jmax, system.lattice, system.J, -1);
  }

  /// Moves the single site of type 1 back to the middle.
  void putBack() {
    fill(0);
    lattice[2][2] = 1;
  }

  bool stayed() const { return system.lattice[2][2] == 1 && sitesOfType(1) == 1; }
};

TEST_F(ExchangeMove, DrawsForTheAcceptanceAndThenTheDirection) {
  int seen[9] = {};
  for (int k = 0; k < 500; ++k) {
    putBack();
    ForeseenDraws next;
    next.real();
    const int dir = next.whole(8);
    EXPECT_EQ(drawsMadeBy([this] { move(2, 2); }), 2);
    ASSERT_EQ(lattice[2][2], 0);
    ASSERT_EQ(lattice[2 + fn_neighbi(0, dir)][2 + fn_neighbj(0, dir)], 1) << "direction " << dir;
    ASSERT_EQ(sitesOfType(1), 1);
    ++seen[dir];
  }
  for (int dir = 1; dir <= 8; ++dir) EXPECT_GT(seen[dir], 0);
}

TEST_F(ExchangeMove, IsAlwaysMadeWithoutPairEnergies) {
  for (const int ignoreEnergy : {0, 1}) {
    for (int k = 0; k < 1000; ++k) {
      putBack();
      move(2, 2, kAny, ignoreEnergy);
      ASSERT_FALSE(stayed());
    }
  }
}

TEST_F(ExchangeMove, IsRefusedForAnImmobileSiteAndStillDrawsTwice) {
  for (const int flag : {1, 2, -1}) {
    system.immobile[1] = flag;
    for (int k = 0; k < 50; ++k) ASSERT_EQ(drawsMadeBy([this] { move(2, 2, kAny, 1); }), 2);
    EXPECT_TRUE(stayed());
  }
}

TEST_F(ExchangeMove, IsRefusedForAnImmobileNeighbourAndStillDrawsTwice) {
  system.immobile[0] = 1;
  for (int k = 0; k < 50; ++k) ASSERT_EQ(drawsMadeBy([this] { move(2, 2, kAny, 1); }), 2);
  EXPECT_TRUE(stayed());
}

TEST_F(ExchangeMove, IsRefusedForANeighbourOfAnotherTypeThanTheTargetAndStillDrawsTwice) {
  for (int k = 0; k < 50; ++k) ASSERT_EQ(drawsMadeBy([this] { move(2, 2, 2, 1); }), 2);
  EXPECT_TRUE(stayed());
}

TEST_F(ExchangeMove, IsMadeWithANeighbourOfTheTargetType) {
  move(2, 2, 0);
  EXPECT_FALSE(stayed());
  EXPECT_EQ(sitesOfType(1), 1);
}

TEST_F(ExchangeMove, ComparesTheTargetWithTheNeighboursTypeAndNotTheSites) {
  move(2, 2, 1);
  EXPECT_TRUE(stayed());
}

TEST_F(ExchangeMove, WithANeighbourOfTheSameTypeChangesNothing) {
  fill(1);
  system.J[1][1] = 5.0;
  for (int k = 0; k < 50; ++k) ASSERT_EQ(drawsMadeBy([this] { move(2, 2, 1); }), 2);
  EXPECT_EQ(sitesOfType(1), 25);
}

TEST_F(ExchangeMove, IsAcceptedWithTheExponentialOfTheEnergyChange) {
  // The site leaves a neighbour of its type, whose pair energy of -2 counts half.
  int made = 0, refused = 0;
  while (made < 50 || refused < 50) {
    putBack();
    lattice[1][2] = 1;
    setPairEnergy(1, 1, -2.0);
    ForeseenDraws next;
    const double u = next.real();
    const bool away = next.whole(8) == 1;
    move(2, 2);
    if (!away) continue;
    const bool expected = std::exp(-1.0) > u;
    ASSERT_EQ(lattice[3][2] == 1, expected) << "u = " << u;
    ++(expected ? made : refused);
  }
}

TEST_F(ExchangeMove, CountsTheEnergiesOfBothSites) {
  // The neighbour of type 2 leaves another of type 2, while the site itself has no energy.
  int made = 0, refused = 0;
  while (made < 50 || refused < 50) {
    putBack();
    lattice[3][2] = lattice[4][2] = 2;
    setPairEnergy(2, 2, -1.0);
    ForeseenDraws next;
    const double u = next.real();
    const bool towards = next.whole(8) == 1;
    move(2, 2);
    if (!towards) continue;
    const bool expected = std::exp(-0.5) > u;
    ASSERT_EQ(lattice[3][2] == 1, expected) << "u = " << u;
    ++(expected ? made : refused);
  }
}

TEST_F(ExchangeMove, UsesTheEnergiesAfterTheExchangeInEveryDirectionAndOnNarrowLattices) {
  for (int a = 0; a < 4; ++a)
    for (int b = 0; b < 4; ++b) system.J[a][b] = 2.0 * fRandReal() - 1.0;
  constexpr std::pair<int, int> sizes[] = {{5, 5}, {3, 3}, {2, 5}, {5, 2}, {2, 2},
                                           {1, 5}, {5, 1}, {1, 2}, {1, 1}};
  for (const auto& [imax, jmax] : sizes) {
    resize(imax, jmax);
    for (int k = 0; k < 2000; ++k) {
      fModelInit(4, imax, jmax, lattice);
      const int i = k % imax, j = k % jmax;
      ForeseenDraws next;
      const double u = next.real();
      const int dir = next.whole(8);
      const int ni = fn_pbc(fn_neighbi(i, dir), imax), nj = fn_pbc(fn_neighbj(j, dir), jmax);
      const int type = lattice[i][j], other = lattice[ni][nj];

      const double before = energyOf(i, j) + energyOf(ni, nj);
      lattice[i][j] = other;
      lattice[ni][nj] = type;
      const double after = energyOf(i, j) + energyOf(ni, nj);
      lattice[ni][nj] = other;
      lattice[i][j] = type;
      const bool made = std::exp(-(after - before)) > u;

      move(i, j);
      ASSERT_EQ(lattice[i][j], made ? other : type) << imax << " by " << jmax << ", direction " << dir;
      ASSERT_EQ(lattice[ni][nj], made ? type : other) << imax << " by " << jmax << ", direction " << dir;
    }
  }
}

TEST_F(ExchangeMove, ThatLowersTheEnergyIsAlwaysMade) {
  int away = 0;
  while (away < 100) {
    putBack();
    lattice[1][2] = 1;
    setPairEnergy(1, 1, 2.0);
    ForeseenDraws next;
    next.real();
    const bool leaves = next.whole(8) == 1;
    move(2, 2);
    if (!leaves) continue;
    ASSERT_EQ(lattice[3][2], 1);
    ++away;
  }
}

TEST_F(ExchangeMove, WithAnAcceptanceOfZeroIsRefusedEvenByADrawOfZero) {
  const SmallestDraws draws;  // Direction 1.
  lattice[1][2] = 1;
  system.J[1][1] = -kInfinity;
  move(2, 2);
  EXPECT_EQ(lattice[2][2], 1);
  EXPECT_EQ(lattice[3][2], 0);
}

TEST_F(ExchangeMove, WithAnAcceptanceOfOneIsMadeEvenByTheLargestDraw) {
  const LargestDraws draws;  // Direction 8.
  move(2, 2);
  EXPECT_EQ(lattice[1][1], 1);
}

TEST_F(ExchangeMove, IgnoresEnergiesOnlyForAFlagOfOne) {
  const SmallestDraws draws;
  system.J[1][1] = -kInfinity;
  for (const int flag : {0, 2, -1, 1}) {
    putBack();
    lattice[1][2] = 1;
    move(2, 2, kAny, flag);
    EXPECT_EQ(lattice[3][2] == 1, flag == 1) << "flag " << flag;
  }
}

TEST_F(ExchangeMove, WithAnEnergyChangeOfNaNIsMade) {
  const LargestDraws draws;
  system.J[1][0] = kInfinity;
  system.J[0][0] = -kInfinity;
  move(2, 2);
  EXPECT_EQ(lattice[1][1], 1);
}

TEST_F(ExchangeMove, ThatLowersTheEnergyByInfinityIsMade) {
  const LargestDraws draws;
  lattice[3][3] = 1;
  system.J[1][1] = kInfinity;
  move(2, 2);
  EXPECT_EQ(lattice[1][1], 1);
}

TEST_F(ExchangeMove, OnAWidthOfOneExchangesTheSiteWithItself) {
  resize(1, 5);
  fill(0);
  lattice[0][2] = 1;
  int itself = 0;
  for (int k = 0; k < 200; ++k) {
    ForeseenDraws next;
    next.real();
    const int dir = next.whole(8);
    if (dir != 1 && dir != 3) {
      fRandReal();
      continue;
    }
    ++itself;
    ASSERT_EQ(drawsMadeBy([this] { move(0, 2, 1); }), 2);
    ASSERT_EQ(lattice[0][2], 1);
    ASSERT_EQ(sitesOfType(1), 1);
  }
  EXPECT_GT(itself, 0);
}

TEST_F(ExchangeMove, OnASingleSiteDrawsTwiceAndChangesNothing) {
  resize(1, 1);
  lattice[0][0] = 1;
  for (int k = 0; k < 50; ++k) ASSERT_EQ(drawsMadeBy([this] { move(0, 0); }), 2);
  EXPECT_EQ(lattice[0][0], 1);
}

TEST_F(ExchangeMove, OverAnEdgeReachesTheOtherSide) {
  fill(0);
  lattice[4][4] = 1;
  const SmallestDraws draws;  // Direction 1.
  move(4, 4);
  EXPECT_EQ(lattice[0][4], 1);
  EXPECT_EQ(lattice[4][4], 0);
}

}  // namespace
}  // namespace quorvane
