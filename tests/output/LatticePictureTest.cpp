#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "DocumentSupport.h"
#include "OutputSupport.h"
#include "output/LatticePicture.h"

namespace quorvane {
namespace {

using testing::Each;
using testing::ElementsAre;

/// A lattice of one black type, to which other types can be added.
std::unique_ptr<LatticeModel> blackLattice(int numTypes, int imax, int jmax) {
  auto model = freshModel();
  model->initializeLatticeModel(numTypes, imax, jmax);
  for (int i = 0; i < imax; ++i)
    for (int j = 0; j < jmax; ++j) model->setSiteValue(i, j, 0);
  for (int t = 0; t < numTypes; ++t) model->setPixelColor(t, 0, 0, 0);
  return model;
}

void restartTraces(LatticeModel& model) {
  for (int t = 0; t < model.getNumPixelTypes(); ++t) model.reinitHistory(t);
}

TEST(LatticePicture, IsAsLargeAsTheLattice) {
  const auto model = blackLattice(1, 5, 3);
  for (const int scale : {1, 4, 8, 9, 32}) {
    const Image image = drawLattice(*model, scale);
    EXPECT_EQ(image.width, 5 * scale);
    EXPECT_EQ(image.height, 3 * scale);
    EXPECT_EQ(image.rgb.size(), static_cast<std::size_t>(3 * 5 * 3 * scale * scale));
  }
}

TEST(LatticePicture, ShowsIFromTheLeftAndJFromTheBottom) {
  const auto model = blackLattice(2, 3, 2);
  model->setPixelColor(1, 1, 0.5, 0);
  model->setSiteValue(2, 0, 1);
  restartTraces(*model);
  const Image image = drawLattice(*model, 1);
  EXPECT_THAT(pixelAt(image, 2, 1), ElementsAre(255, 128, 0));
  for (const auto& [x, y] : {std::pair(0, 0), {1, 0}, {2, 0}, {0, 1}, {1, 1}})
    EXPECT_THAT(pixelAt(image, x, y), Each(0)) << x << ", " << y;
}

TEST(LatticePicture, LaterSitesCoverTheOnePixelOverlapOfEarlierOnes) {
  const auto model = blackLattice(2, 3, 3);
  model->setPixelColor(0, 0, 0, 1);
  model->setPixelColor(1, 1, 0, 0);
  model->setSiteValue(1, 1, 1);
  restartTraces(*model);
  const Image image = drawLattice(*model, 8);
  // Opaque, so each site covers its own 8 by 8 pixels exactly.
  for (int y = 0; y < 24; ++y)
    for (int x = 0; x < 24; ++x) {
      const bool inside = x / 8 == 1 && y / 8 == 1;
      EXPECT_THAT(pixelAt(image, x, y), inside ? ElementsAre(255, 0, 0) : ElementsAre(0, 0, 255));
    }
}

TEST(LatticePicture, TransparentSitesOverlapByOnePixelToTheRightAndAbove) {
  const auto model = blackLattice(2, 2, 2);
  model->setPixelColor(1, 1, 1, 1);
  model->setPixelAlpha(0, 0);
  model->setPixelAlpha(1, 0.5);
  model->setSiteValue(0, 0, 1);
  restartTraces(*model);
  const Image image = drawLattice(*model, 4);
  for (int y = 0; y < 8; ++y)
    for (int x = 0; x < 8; ++x)
      EXPECT_THAT(pixelAt(image, x, y), Each(x <= 4 && y >= 3 ? 128 : 0)) << x << ", " << y;
}

TEST(LatticePicture, HasTwoPixelGridLinesAboveEightPixelsASite) {
  const auto model = blackLattice(1, 2, 2);
  model->setPixelColor(0, 1, 1, 1);
  for (const int scale : {9, 10}) {
    const Image image = drawLattice(*model, scale);
    for (int y = 0; y < image.height; ++y)
      for (int x = 0; x < image.width; ++x) {
        const int fromBottom = image.height - 1 - y;
        const bool onGrid = x % scale < 2 || fromBottom % scale < 2;
        EXPECT_THAT(pixelAt(image, x, y), Each(onGrid ? 0 : 255)) << x << ", " << y << " at " << scale;
      }
  }
  const Image withoutGrid = drawLattice(*model, 8);
  EXPECT_THAT(withoutGrid.rgb, Each(255));
}

TEST(LatticePicture, BlendsTheTypesInOrderByTheirTraces) {
  const auto model = blackLattice(3, 1, 1);
  model->setPixelColor(0, 1, 0, 0);
  model->setPixelColor(1, 0, 1, 0);
  model->setPixelColor(2, 0, 0, 1);
  model->setPixelAlpha(2, 0.5);
  restartTraces(*model);
  model->varMobileHistory[0][0][0] = 1.0;
  model->varMobileHistory[1][0][0] = 2.0;
  model->varMobileHistoryMax[1] = 8.0;
  model->varMobileHistory[2][0][0] = 1.0;
  // Red; a quarter of green over it: 191.25, 63.75; half of blue over that; rounded after each step.
  EXPECT_THAT(pixelAt(drawLattice(*model, 1), 0, 0), ElementsAre(96, 32, 128));
}

TEST(LatticePicture, RoundsToEightBitsAfterEveryType) {
  const auto model = blackLattice(3, 1, 1);
  for (int t = 0; t < 3; ++t) model->setPixelColor(t, 1, 1, 1);
  const double alpha = 0.4 / 255.0;
  for (int t = 0; t < 3; ++t) {
    model->setPixelAlpha(t, alpha);
    model->varMobileHistory[t][0][0] = 1.0;
  }
  // Together they would give 1.2; one by one, each rounds to nothing.
  EXPECT_THAT(pixelAt(drawLattice(*model, 1), 0, 0), Each(0));
}

TEST(LatticePicture, ClampsColoursAndAlphas) {
  const auto model = blackLattice(1, 1, 1);
  model->setPixelColor(0, 7.0, -3.0, std::numeric_limits<double>::quiet_NaN());
  model->setPixelAlpha(0, 9.0);
  EXPECT_THAT(pixelAt(drawLattice(*model, 1), 0, 0), ElementsAre(255, 0, 0));
  model->setPixelAlpha(0, -1.0);
  EXPECT_THAT(pixelAt(drawLattice(*model, 1), 0, 0), Each(0));
  model->setPixelAlpha(0, std::numeric_limits<double>::quiet_NaN());
  EXPECT_THAT(pixelAt(drawLattice(*model, 1), 0, 0), Each(0));
}

TEST(LatticePicture, ShowsTheTraceAndNotTheSites) {
  const auto model = blackLattice(2, 1, 1);
  model->setPixelColor(1, 1, 1, 1);
  restartTraces(*model);
  model->setSiteValue(0, 0, 1);
  EXPECT_THAT(pixelAt(drawLattice(*model, 1), 0, 0), Each(0));
}

}  // namespace
}  // namespace quorvane
