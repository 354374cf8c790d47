#include <gtest/gtest.h>

#include <limits>
#include <utility>

#include "EngineTest.h"
#include "engine/Directions.h"

namespace quorvane {
namespace {

TEST(Directions, OneToEightLeadToTheEightNeighbours) {
  constexpr std::pair<int, int> steps[] = {{1, 0}, {0, 1},  {-1, 0}, {0, -1},
                                           {1, 1}, {-1, 1}, {1, -1}, {-1, -1}};
  for (int dir = 1; dir <= 8; ++dir) {
    EXPECT_EQ(fn_neighbi(10, dir), 10 + steps[dir - 1].first) << "direction " << dir;
    EXPECT_EQ(fn_neighbj(20, dir), 20 + steps[dir - 1].second) << "direction " << dir;
  }
}

TEST(Directions, OppositeOnesLeadBack) {
  for (std::size_t k = 0; k < kOpposite.size(); ++k) {
    const int there = static_cast<int>(k) + 1, back = static_cast<int>(kOpposite[k]) + 1;
    EXPECT_EQ(fn_neighbi(fn_neighbi(10, there), back), 10) << "direction " << there;
    EXPECT_EQ(fn_neighbj(fn_neighbj(20, there), back), 20) << "direction " << there;
  }
}

TEST(Directions, AnyOtherCodeLeadsToTheSiteItself) {
  for (const int dir :
       {0, 9, -1, -8, 100, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    EXPECT_EQ(fn_neighbi(3, dir), 3);
    EXPECT_EQ(fn_neighbj(3, dir), 3);
  }
}

TEST(Wrap, TakesOneStepOverEitherEdgeToTheOther) {
  for (const int n : {1, 2, 3, 17, 256}) {
    EXPECT_EQ(fn_pbc(-1, n), n - 1);
    EXPECT_EQ(fn_pbc(n, n), 0);
    EXPECT_EQ(fn_pbc(n - 1, n), n - 1);
    EXPECT_EQ(fn_pbc(0, n), 0);
  }
}

TEST(Wrap, WorksForAnyDistance) {
  EXPECT_EQ(fn_pbc(-5, 3), 1);
  EXPECT_EQ(fn_pbc(-6, 3), 0);
  EXPECT_EQ(fn_pbc(1000, 7), 6);
  EXPECT_EQ(fn_pbc(std::numeric_limits<int>::min(), 256), 0);
  EXPECT_EQ(fn_pbc(std::numeric_limits<int>::max(), 256), 255);
}

class NeighbourCount : public EngineTest {
 protected:
  int count(int i, int j, int type) const {
    return fNumNeighbourSitesOfType(i, j, system.imax, system.jmax, type, system.lattice);
  }
};

TEST_F(NeighbourCount, CountsTheEightNeighboursAndNotTheSite) {
  fill(1);
  EXPECT_EQ(count(2, 2, 1), 8);
  lattice[2][2] = 3;
  EXPECT_EQ(count(2, 2, 3), 0);
  EXPECT_EQ(count(2, 2, 1), 8);
}

TEST_F(NeighbourCount, CountsEachNeighbourOnce) {
  for (int dir = 1; dir <= 8; ++dir) {
    fill(0);
    lattice[2 + fn_neighbi(0, dir)][2 + fn_neighbj(0, dir)] = 4;
    EXPECT_EQ(count(2, 2, 4), 1) << "direction " << dir;
    EXPECT_EQ(count(2, 2, 0), 7) << "direction " << dir;
  }
}

TEST_F(NeighbourCount, ReachesOverTheEdges) {
  lattice[4][4] = lattice[0][4] = lattice[4][0] = 2;
  lattice[4][1] = lattice[1][4] = 2;
  EXPECT_EQ(count(0, 0, 2), 5);
}

TEST_F(NeighbourCount, DoesNotReachSitesThatAreNotInUse) {
  lattice[5][0] = lattice[0][5] = lattice[255][0] = lattice[0][255] = 6;
  EXPECT_EQ(count(4, 4, 6), 0);
  EXPECT_EQ(count(0, 0, 6), 0);
}

TEST_F(NeighbourCount, OfTypeMinusOneIsNothing) { EXPECT_EQ(count(2, 2, -1), 0); }

TEST_F(NeighbourCount, IncludesTheSiteItselfOnAWidthOfOne) {
  resize(1, 5);
  lattice[0][2] = 1;
  EXPECT_EQ(count(0, 2, 1), 2);  // In directions 1 and 3.
  resize(5, 1);
  fill(0);
  lattice[2][0] = 1;
  EXPECT_EQ(count(2, 0, 1), 2);  // In directions 2 and 4.
}

TEST_F(NeighbourCount, IsTheSiteEightTimesOnASingleSite) {
  resize(1, 1);
  lattice[0][0] = 3;
  EXPECT_EQ(count(0, 0, 3), 8);
}

TEST_F(NeighbourCount, CountsASiteOncePerDirectionOnAWidthOfTwo) {
  resize(2, 5);
  lattice[1][2] = 1;
  EXPECT_EQ(count(0, 2, 1), 2);  // In directions 1 and 3.
  lattice[1][2] = 0;
  lattice[1][3] = 1;
  EXPECT_EQ(count(0, 2, 1), 2);  // In directions 5 and 6.
  resize(2, 2);
  fill(0);
  lattice[1][1] = 1;
  EXPECT_EQ(count(0, 0, 1), 4);
}

TEST_F(NeighbourCount, OfUpsIsThatOfTypesTwoFiveAndEleven) {
  for (int type = 0; type <= 12; ++type) {
    fill(1);
    surround(2, 2, 3, type);
    const bool up = type == 2 || type == 5 || type == 11;
    EXPECT_EQ(fUps(2, 2, 5, 5, lattice), up ? 3 : 0) << "type " << type;
  }
  lattice[3][2] = 2;
  lattice[2][3] = 5;
  lattice[1][2] = 11;
  EXPECT_EQ(fUps(2, 2, 5, 5, lattice), 3);
}

TEST_F(NeighbourCount, OfDensesIsThatOfTypeZero) {
  fill(1);
  EXPECT_EQ(fDenses(2, 2, 5, 5, lattice), 0);
  surround(2, 2, 5, 0);
  EXPECT_EQ(fDenses(2, 2, 5, 5, lattice), 5);
  lattice[2][2] = 0;
  EXPECT_EQ(fDenses(2, 2, 5, 5, lattice), 5);
}

TEST_F(NeighbourCount, DrawsNothing) {
  EXPECT_EQ(drawsMadeBy([this] {
              count(1, 1, 0);
              fUps(1, 1, 5, 5, lattice);
              fDenses(1, 1, 5, 5, lattice);
            }),
            0);
}

class ModelInit : public EngineTest {};

TEST_F(ModelInit, DrawsATypeForEachSiteColumnByColumn) {
  ForeseenDraws next;
  fModelInit(4, 3, 7, lattice);
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 7; ++j) ASSERT_EQ(lattice[i][j], next.whole(4) - 1) << i << ", " << j;
}

TEST_F(ModelInit, MakesOneDrawASiteAlsoForASingleType) {
  EXPECT_EQ(drawsMadeBy([this] { fModelInit(5, 6, 7, lattice); }), 42);
  EXPECT_EQ(drawsMadeBy([this] { fModelInit(1, 6, 7, lattice); }), 42);
}

TEST_F(ModelInit, UsesEveryTypeAndNoOther) {
  fModelInit(10, 256, 256, lattice);
  resize(256, 256);
  int all = 0;
  for (int type = 0; type < 10; ++type) {
    EXPECT_NEAR(sitesOfType(type), 6554, 400);
    all += sitesOfType(type);
  }
  EXPECT_EQ(all, 256 * 256);
}

TEST_F(ModelInit, DoesNotChangeSitesThatAreNotInUse) {
  resize(256, 256);
  fill(9);
  fModelInit(2, 4, 5, lattice);
  EXPECT_EQ(sitesOfType(9), 256 * 256 - 20);
}

TEST_F(ModelInit, OfNoSitesWritesAndDrawsNothing) {
  resize(256, 256);
  fill(9);
  EXPECT_EQ(drawsMadeBy([this] {
              fModelInit(3, 0, 5, lattice);
              fModelInit(3, 5, 0, lattice);
              fModelInit(3, 0, 0, lattice);
            }),
            0);
  EXPECT_EQ(sitesOfType(9), 256 * 256);
}

}  // namespace
}  // namespace quorvane
