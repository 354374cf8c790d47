#include <gtest/gtest.h>

#include "app/LatticeSizing.h"

namespace quorvane {
namespace {

TEST(LatticeSizing, SpansTheDensityOver502PointsAndTruncates) {
  EXPECT_EQ(latticeSize(800, 600, 100), (LatticeSize{159, 119}));
  EXPECT_EQ(latticeSize(502, 502, 50), (LatticeSize{50, 50}));
}

TEST(LatticeSizing, LimitsTheWidthAndAdjustsTheHeightToTheViewsShape) {
  EXPECT_EQ(latticeSize(800, 600, 200), (LatticeSize{254, 190}));
}

TEST(LatticeSizing, LimitsTheHeightAndAdjustsTheWidthToTheViewsShape) {
  EXPECT_EQ(latticeSize(600, 800, 200), (LatticeSize{190, 254}));
}

TEST(LatticeSizing, ChecksTheHeightAgainAfterTheWidth) {
  // The limit of the width alone would give 254 x 317.
  EXPECT_EQ(latticeSize(800, 1000, 200), (LatticeSize{203, 254}));
  EXPECT_EQ(latticeSize(700, 700, 256), (LatticeSize{254, 254}));
}

TEST(LatticeSizing, LimitsAlsoAtExactly254) {
  EXPECT_EQ(latticeSize(508, 300, 251), (LatticeSize{254, 150}));
  EXPECT_EQ(latticeSize(506, 300, 251), (LatticeSize{253, 150}));
  // 254 rows of 2 points leave one point over, which reduces the columns.
  EXPECT_EQ(latticeSize(400, 509, 251), (LatticeSize{199, 254}));
  EXPECT_EQ(latticeSize(509, 400, 251), (LatticeSize{254, 199}));
}

TEST(LatticeSizing, NeverGivesASideWithoutSites) {
  EXPECT_EQ(latticeSize(400, 400, 1), (LatticeSize{1, 1}));
  EXPECT_EQ(latticeSize(0, 0, 100), (LatticeSize{1, 1}));
  EXPECT_EQ(latticeSize(100'000, 10, 100), (LatticeSize{254, 1}));
}

}  // namespace
}  // namespace quorvane
