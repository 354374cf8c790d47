#include <gtest/gtest.h>

#include <fstream>

#include "DocumentSupport.h"
#include "OutputSupport.h"
#include "output/Png.h"

namespace quorvane {
namespace {

Image gradient(int width, int height) {
  Image image{width, height, {}};
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      for (const int value : {x, y, x * y}) image.rgb.push_back(static_cast<std::uint8_t>(value));
  return image;
}

TEST(Png, ReadsBackAsTheSamePixels) {
  const TemporaryFolder folder;
  for (const auto& [width, height] : {std::pair(1, 1), {1, 7}, {256, 3}, {61, 97}}) {
    const Image image = gradient(width, height);
    std::ofstream(folder / "image.png", std::ios::binary) << encodePng(image);
    const Image again = readPng(folder / "image.png");
    EXPECT_EQ(again.width, width);
    EXPECT_EQ(again.height, height);
    EXPECT_EQ(again.rgb, image.rgb);
  }
}

TEST(Png, OfTheSameImageHasTheSameBytes) {
  EXPECT_EQ(encodePng(gradient(20, 30)), encodePng(gradient(20, 30)));
}

TEST(Png, OfNoPixelsIsAnError) { EXPECT_THROW(encodePng(Image{}), std::runtime_error); }

}  // namespace
}  // namespace quorvane
