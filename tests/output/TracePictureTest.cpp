#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "DocumentSupport.h"
#include "LiteralBlend.h"
#include "OutputSupport.h"

namespace quorvane {
namespace {

using testing::Each;

/// A lattice with a history: types with different colours, opacities and persistences, after some sweeps in
/// which sites change at random.
std::unique_ptr<LatticeModel> latticeWithTraces(int numTypes, int imax, int jmax, unsigned seed) {
  auto model = freshModel();
  model->initializeLatticeModel(numTypes, imax, jmax);
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> share(0.0, 1.0);
  std::uniform_int_distribution<int> type(0, numTypes - 1);
  for (int t = 0; t < numTypes; ++t) {
    model->setPixelColor(t, share(random), share(random), share(random));
    model->setPixelAlpha(t, share(random));
    model->setPixelPersistence(t, share(random));
  }
  constexpr int sweeps = 5;
  for (int sweep = 0; sweep < sweeps; ++sweep) {
    for (int i = 0; i < imax; ++i)
      for (int j = 0; j < jmax; ++j) model->setSiteValue(i, j, type(random));
    model->updateHistory();
  }
  return model;
}

/// A panel of drawLatticeAndTraces, 0 the lattice and t + 1 the trace of type t.
Image panelOf(const Image& all, int panel, int width) {
  Image image{width, all.height, {}};
  const int left = panel * (width + kPanelGap);
  for (int y = 0; y < all.height; ++y) {
    const auto row = all.rgb.begin() + std::ptrdiff_t{3} * (y * all.width + left);
    image.rgb.insert(image.rgb.end(), row, row + std::ptrdiff_t{3} * width);
  }
  return image;
}

TEST(TracePicture, OfTheLatticeIsTheLiteralBlendOfAllTypes) {
  for (const int scale : {1, 3, 8, 9, 12}) {
    const auto model = latticeWithTraces(6, 17, 11, 3);
    // Single precision may round a component of a layer differently.
    EXPECT_LE(largestDifference(drawLattice(*model, scale), literalBlend(*model, 0, 6, scale)), 1) << scale;
  }
}

TEST(TracePicture, OfATypeIsTheLiteralBlendOfThatTypeAlone) {
  for (const int scale : {1, 3, 8, 9, 12}) {
    const auto model = latticeWithTraces(6, 17, 11, 4);
    for (int t = 0; t < 6; ++t)
      EXPECT_LE(largestDifference(drawTrace(*model, t, scale), literalBlend(*model, t, t + 1, scale)), 1)
          << "type " << t << " at " << scale;
  }
}

TEST(TracePicture, OfATypeIsThePictureWithTheOthersTransparent) {
  const auto model = latticeWithTraces(4, 9, 9, 5);
  const Image trace = drawTrace(*model, 2, 5);
  for (const int t : {0, 1, 3}) model->setPixelAlpha(t, 0.0);
  EXPECT_EQ(drawLattice(*model, 5).rgb, trace.rgb);
}

TEST(TracePicture, HasTheLatticeAndEveryTypeFromLeftToRight) {
  constexpr int scale = 3, width = 7 * scale;
  const auto model = latticeWithTraces(3, 7, 5, 6);
  const Image all = drawLatticeAndTraces(*model, scale);
  ASSERT_EQ(all.width, 4 * width + 3 * kPanelGap);
  ASSERT_EQ(all.height, 5 * scale);
  EXPECT_EQ(panelOf(all, 0, width).rgb, drawLattice(*model, scale).rgb);
  for (int t = 0; t < 3; ++t) EXPECT_EQ(panelOf(all, t + 1, width).rgb, drawTrace(*model, t, scale).rgb) << t;
  for (int y = 0; y < all.height; ++y)
    for (int gap = 1; gap <= 3; ++gap)
      for (int x = gap * (width + kPanelGap) - kPanelGap; x < gap * (width + kPanelGap); ++x)
        EXPECT_THAT(pixelAt(all, x, y), Each(kPanelGapGrey)) << x << ", " << y;
}

TEST(TracePicture, FadesByThePersistenceOfItsType) {
  auto model = freshModel();
  model->initializeLatticeModel(2, 1, 2);
  model->setPixelColor(1, 1, 1, 1);
  model->setPixelPersistence(1, 0.5);
  model->setSiteValue(0, 0, 1);
  model->setSiteValue(0, 1, 1);
  for (int t = 0; t < 2; ++t) model->reinitHistory(t);
  model->setSiteValue(0, 0, 0);
  model->updateHistory();
  // The left site has 0.5; the site that stayed has 1.5, the largest.
  const Image trace = drawTrace(*model, 1, 1);
  EXPECT_THAT(pixelAt(trace, 0, 0), Each(255));
  EXPECT_THAT(pixelAt(trace, 0, 1), Each(85));
}

}  // namespace
}  // namespace quorvane
