#include <gtest/gtest.h>

#include "TestModel.h"
#include "model/DrawnSite.h"

namespace quorvane {
namespace {

TEST(DrawnSite, LeavesALineOfTwoBetweenSquaresAboveASpacingOfEight) {
  for (const double spacing : {8.001, 9.0, 32.0}) {
    EXPECT_EQ(siteSquare(spacing).inset, 2) << spacing;
    EXPECT_EQ(siteSquare(spacing).reach, -2) << spacing;
  }
}

TEST(DrawnSite, OverlapsTheNextByOneUpToASpacingOfEight) {
  for (const double spacing : {0.5, 1.0, 8.0}) {
    EXPECT_EQ(siteSquare(spacing).inset, 0) << spacing;
    EXPECT_EQ(siteSquare(spacing).reach, 1) << spacing;
  }
}

TEST(DrawnSite, HasTheColourAndOpacityOfItsTypeWhereItsTraceIsLargest) {
  auto model = makeModel(2, 3, 3);
  model->setPixelColor(1, 0.1, 0.5, 1.0);
  model->varSiteAlpha[1] = 0.75;
  model->varMobileHistoryMax[1] = 4.0;
  const TypeInk ink = inkOf(*model, 1);
  EXPECT_EQ(ink.red, 0.1f);
  EXPECT_EQ(ink.green, 0.5f);
  EXPECT_EQ(ink.blue, 1.0f);
  EXPECT_EQ(ink.alphaOf(4.0), 0.75f);
  EXPECT_EQ(ink.alphaOf(1.0), 0.1875f);
  EXPECT_EQ(ink.alphaOf(0.0), 0.0f);
}

}  // namespace
}  // namespace quorvane
