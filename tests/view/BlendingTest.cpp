#include <gtest/gtest.h>

#include <cstdlib>

#include "Lattices.h"

namespace quorvane {
namespace {

/// A lattice of one site, which covers the view except for the gap along its edges.
QColor middleOf(GraphicalLatticeModelGL& view) { return colorAt(gui::frameOf(view), 50, 50); }

std::unique_ptr<GraphicalLatticeModelGL> viewOfOneSite(int numTypes) {
  auto view = shownView(100, 100);
  fillLattice(*view, numTypes, 1, 1, [](int, int) { return 0; });
  return view;
}

::testing::AssertionResult near(const QColor& color, double red, double green, double blue) {
  const auto off = [](int component, double share) { return std::abs(component - share * 255.0) > 1.0; };
  if (!off(color.red(), red) && !off(color.green(), green) && !off(color.blue(), blue))
    return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << color.name().toStdString();
}

TEST(Blending, UsesTraceOverMaximumTimesOpacityAsAlpha) {
  auto view = viewOfOneSite(2);
  view->varMobileHistory[0][0][0] = 0.0;
  view->varMobileHistory[1][0][0] = 1.5;
  view->varMobileHistoryMax[1] = 2.0;
  view->setPixelAlpha(1, 0.8);
  EXPECT_TRUE(near(middleOf(*view), 0.6, 0.0, 0.0));
}

TEST(Blending, DrawsHigherTypesOverLowerOnes) {
  auto view = viewOfOneSite(4);
  const double alphas[] = {1.0, 0.5, 0.25, 0.75};
  for (int type = 0; type < 4; ++type) {
    view->varMobileHistory[type][0][0] = 1.0;
    view->setPixelAlpha(type, alphas[type]);
  }
  // Red 0.5, then green 0.25 over it, then blue 0.75 over both.
  EXPECT_TRUE(near(middleOf(*view), 0.5 * 0.75 * 0.25, 0.25 * 0.25, 0.75));
}

TEST(Blending, OfAnOpaqueTypeHidesEveryLowerOne) {
  auto view = viewOfOneSite(3);
  for (int type = 0; type < 3; ++type) view->varMobileHistory[type][0][0] = 1.0;
  EXPECT_EQ(middleOf(*view), QColor(Qt::green));
}

TEST(Blending, DrawsNoTypesBeyondTheCount) {
  auto view = viewOfOneSite(2);
  view->varMobileHistory[1][0][0] = 1.0;
  view->varMobileHistory[2][0][0] = 1.0;
  view->varMobileHistoryMax[2] = 1.0;
  view->setPixelAlpha(2, 1.0);
  view->setPixelColor(2, 0.0, 1.0, 0.0);
  EXPECT_EQ(middleOf(*view), QColor(Qt::red));
}

TEST(Blending, FadesATypeThatLeftItsSiteByItsPersistence) {
  auto view = viewOfOneSite(2);
  view->setPixelAlpha(0, 0.0);
  view->setPixelPersistence(1, 0.5);
  view->setSiteValue(0, 0, 1);
  view->reinitHistory(1);
  EXPECT_EQ(middleOf(*view), QColor(Qt::red));
  view->setSiteValue(0, 0, 0);
  for (const double left : {0.5, 0.25, 0.125}) {
    view->updateHistory();
    EXPECT_TRUE(near(middleOf(*view), left, 0.0, 0.0)) << left;
  }
}

TEST(Blending, ShowsATypeAtFullStrengthWhereItsTraceIsLargest) {
  auto view = viewOfOneSite(2);
  view->setPixelAlpha(0, 0.0);
  view->setPixelPersistence(1, 0.75);
  view->setSiteValue(0, 0, 1);
  view->reinitHistory(1);
  for (int sweep = 0; sweep < 20; ++sweep) view->updateHistory();
  ASSERT_GT(view->varMobileHistoryMax[1], 3.9);
  EXPECT_EQ(middleOf(*view), QColor(Qt::red));
}

TEST(Blending, DoesNotDependOnSiteValuesMasqueradeOrTheHoverPosition) {
  auto view = viewOfOneSite(3);
  const QImage before = gui::frameOf(*view);
  view->setSiteValue(0, 0, 1);
  view->setPixelMasqueradeAs(0, 2);
  view->varIHoverLast = 0;
  view->varJHoverLast = 0;
  EXPECT_TRUE(gui::samePixels(gui::frameOf(*view), before));
}

}  // namespace
}  // namespace quorvane
