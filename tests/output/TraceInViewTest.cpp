#include <gtest/gtest.h>

#include "Lattices.h"
#include "LiteralBlend.h"

namespace quorvane {
namespace {

Image imageOf(const QImage& frame) {
  Image image{frame.width(), frame.height(), {}};
  for (int y = 0; y < image.height; ++y)
    for (int x = 0; x < image.width; ++x) {
      const QRgb pixel = frame.pixel(x, y);
      for (const int component : {qRed(pixel), qGreen(pixel), qBlue(pixel)})
        image.rgb.push_back(static_cast<std::uint8_t>(component));
    }
  return image;
}

/// The pattern moves by one site per sweep and leaves traces behind.
void runSome(LatticeModel& model) {
  for (int t = 0; t < model.getNumPixelTypes(); ++t) model.setPixelPersistence(t, 0.5 + 0.1 * t);
  for (int shift = 1; shift <= 6; ++shift) {
    const SiteType moved = scatteredTypes(model.getNumPixelTypes());
    for (int i = 0; i < model.getIMax(); ++i)
      for (int j = 0; j < model.getJMax(); ++j) model.setSiteValue(i, j, moved(i + shift, j));
    model.updateHistory();
  }
}

TEST(TraceInView, OfEachTypeIsTheFrameWithEveryOtherTypeTransparent) {
  constexpr int imax = 31, jmax = 23, numTypes = 4;
  for (const int scale : {1, 4, 10}) {
    auto view = shownView(imax * scale, jmax * scale);
    fillLattice(*view, numTypes, imax, jmax, scatteredTypes(numTypes));
    runSome(*view);
    for (int shown = 0; shown < numTypes; ++shown) {
      for (int t = 0; t < numTypes; ++t) view->setPixelAlpha(t, t == shown ? 0.8 : 0.0);
      const Image frame = imageOf(gui::frameOf(*view));
      for (int t = 0; t < numTypes; ++t) view->setPixelAlpha(t, 0.8);
      // Drivers blend with their own integer arithmetic, so each layer may differ by one; up to four
      // rectangles of a type overlap.
      EXPECT_LE(largestDifference(frame, drawTrace(*view, shown, scale)), 4)
          << "type " << shown << " at " << scale << " pixels a site";
    }
  }
}

TEST(TraceInView, EqualsTheLiteralBlend) {
  constexpr int imax = 31, jmax = 23, numTypes = 4;
  for (const int scale : {1, 4, 10}) {
    auto view = shownView(imax * scale, jmax * scale);
    fillLattice(*view, numTypes, imax, jmax, scatteredTypes(numTypes));
    runSome(*view);
    EXPECT_LE(largestDifference(imageOf(gui::frameOf(*view)), literalBlend(*view, 0, numTypes, scale)), 4)
        << scale;
  }
}

}  // namespace
}  // namespace quorvane
