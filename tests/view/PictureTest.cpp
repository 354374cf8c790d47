#include <gtest/gtest.h>

#include <cstdlib>

#include "Lattices.h"
#include "output/LatticePicture.h"

namespace quorvane {
namespace {

/// The largest difference of a colour component between the view's frame and the runner's picture.
int largestDifference(const QImage& frame, const Image& picture) {
  int largest = 0;
  const std::uint8_t* component = picture.rgb.data();
  for (int y = 0; y < picture.height; ++y)
    for (int x = 0; x < picture.width; ++x) {
      const QRgb pixel = frame.pixel(x, y);
      for (const int shown : {qRed(pixel), qGreen(pixel), qBlue(pixel)})
        largest = std::max(largest, std::abs(shown - *component++));
    }
  return largest;
}

TEST(Picture, OfTheRunnerIsTheFrameOfAViewThatFitsTheLattice) {
  for (const int scale : {1, 3, 8, 9, 12}) {
    constexpr int imax = 37, jmax = 29;
    auto view = shownView(imax * scale, jmax * scale);
    fillLattice(*view, 5, imax, jmax, scatteredTypes(5));
    scatterTraces(*view, 7);
    const QImage frame = gui::frameOf(*view);
    const Image picture = drawLattice(*view, scale);
    ASSERT_EQ(frame.size(), QSize(picture.width, picture.height));
    // Drivers blend with their own integer arithmetic, so each of the five layers may differ by one.
    EXPECT_LE(largestDifference(frame, picture), 5) << "at " << scale << " pixels a site";
  }
}

TEST(Picture, OfOpaqueSitesEqualsTheFrameExactly) {
  constexpr int imax = 37, jmax = 29, scale = 4;
  auto view = shownView(imax * scale, jmax * scale);
  fillLattice(*view, 10, imax, jmax, scatteredTypes(10));
  EXPECT_EQ(largestDifference(gui::frameOf(*view), drawLattice(*view, scale)), 0);
}

}  // namespace
}  // namespace quorvane
