#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "EngineTest.h"

namespace quorvane {
namespace {

class SiteEnergy : public EngineTest {
 protected:
  double energy(int i, int j, int substitute = -1) const {
    return fSiteNNEnergyLM(i, j, system.imax, system.jmax, system.lattice, system.J, substitute);
  }
};

TEST_F(SiteEnergy, IsHalfTheSumOfTheEightPairEnergies) {
  lattice[2][2] = 1;
  surround(2, 2, 3, 2);
  setPairEnergy(1, 0, 0.25);
  setPairEnergy(1, 2, -3.0);
  EXPECT_EQ(energy(2, 2), (5 * 0.25 - 3 * 3.0) / 2);
}

TEST_F(SiteEnergy, UsesTheRowOfTheCentreAndTheColumnOfTheNeighbour) {
  lattice[2][2] = 1;
  system.J[1][0] = 1.0;
  system.J[0][1] = 100.0;
  EXPECT_EQ(energy(2, 2), 4.0);
  EXPECT_EQ(energy(2, 1), 50.0);
}

TEST_F(SiteEnergy, AddsInDirectionOrder) {
  // Eight neighbours of eight types, with energies for which rounding makes the sum depend on the order.
  for (int dir = 1; dir <= 8; ++dir) lattice[2 + fn_neighbi(0, dir)][2 + fn_neighbj(0, dir)] = dir;
  for (int k = 0; k < 1000; ++k) {
    double expected = 0.0;
    for (int dir = 1; dir <= 8; ++dir) {
      system.J[0][dir] = (fRandReal() - 0.5) * std::pow(2.0, fRandInt(20));
      expected = system.J[0][dir] / 2.0 + expected;
    }
    ASSERT_EQ(energy(2, 2), expected);
  }
}

TEST_F(SiteEnergy, HalvesEachPairEnergyBeforeAdding) {
  system.J[0][0] = std::numeric_limits<double>::max() / 4.0;
  EXPECT_EQ(energy(2, 2), std::numeric_limits<double>::max());
}

TEST_F(SiteEnergy, OfASubstituteIsTheOneTheSiteWouldHave) {
  surround(2, 2, 3, 2);
  setPairEnergy(4, 0, 1.5);
  setPairEnergy(4, 2, -0.5);
  EXPECT_EQ(energy(2, 2, 4), (5 * 1.5 - 3 * 0.5) / 2);
}

TEST_F(SiteEnergy, OfASubstituteDoesNotChangeTheLattice) {
  lattice[2][2] = 3;
  energy(2, 2, 4);
  EXPECT_EQ(lattice[2][2], 3);
  EXPECT_EQ(sitesOfType(0), 24);
}

TEST_F(SiteEnergy, OfTypeZeroAsSubstituteIsNotThatOfNoSubstitute) {
  lattice[2][2] = 1;
  system.J[0][0] = 1.0;
  system.J[1][0] = 3.0;
  EXPECT_EQ(energy(2, 2, 0), 4.0);
  EXPECT_EQ(energy(2, 2, -1), 12.0);
}

TEST_F(SiteEnergy, OfASubstituteSeesItselfOnAWidthOfOne) {
  setPairEnergy(1, 1, 10.0);
  setPairEnergy(1, 0, 1.0);
  resize(1, 5);
  EXPECT_EQ(energy(0, 2, 1), (2 * 10.0 + 6 * 1.0) / 2);
  resize(5, 1);
  EXPECT_EQ(energy(2, 0, 1), (2 * 10.0 + 6 * 1.0) / 2);
  resize(1, 1);
  EXPECT_EQ(energy(0, 0, 1), 8 * 10.0 / 2);
}

TEST_F(SiteEnergy, CountsASiteTwiceOnAWidthOfTwo) {
  resize(2, 5);
  lattice[1][2] = 2;
  setPairEnergy(0, 2, 1.0);
  EXPECT_EQ(energy(0, 2), 1.0);  // In directions 1 and 3.
  EXPECT_EQ(energy(1, 2), 4.0);
}

TEST_F(SiteEnergy, WithAnInfinityOfEachSignIsNaN) {
  lattice[3][2] = 1;
  system.J[0][1] = std::numeric_limits<double>::infinity();
  system.J[0][0] = -std::numeric_limits<double>::infinity();
  EXPECT_TRUE(std::isnan(energy(2, 2)));
}

TEST_F(SiteEnergy, DrawsNothing) {
  EXPECT_EQ(drawsMadeBy([this] {
              energy(2, 2);
              energy(2, 2, 1);
            }),
            0);
}

}  // namespace
}  // namespace quorvane
