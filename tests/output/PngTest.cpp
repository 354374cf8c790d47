#include <gtest/gtest.h>
#include <png.h>

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

/// The bytes from libpng's simplified interface, which has no text fields.
std::string encodedWhole(const Image& image) {
  png_image png = {};
  png.version = PNG_IMAGE_VERSION;
  png.width = static_cast<png_uint_32>(image.width);
  png.height = static_cast<png_uint_32>(image.height);
  png.format = PNG_FORMAT_RGB;
  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(png);
  std::string bytes(size, '\0');
  EXPECT_TRUE(png_image_write_to_memory(&png, bytes.data(), &size, 0, image.rgb.data(), 0, nullptr));
  bytes.resize(size);
  return bytes;
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

TEST(Png, WithoutTextsHasTheBytesOfTheLibrarysSimplifiedInterface) {
  for (const auto& [width, height] : {std::pair(1, 1), {1, 7}, {256, 3}, {61, 97}, {1024, 700}}) {
    const Image image = gradient(width, height);
    EXPECT_EQ(encodePng(image), encodedWhole(image)) << width << " x " << height;
  }
}

TEST(Png, KeepsItsTexts) {
  const TemporaryFolder folder;
  const Image image = gradient(61, 97);
  const std::vector<Text> texts = {{"Software", "Quorvane 1.2"},
                                   {"Document", "caf\xC3\xA9 \xE6\x99\xB6.quorvane"},
                                   {"Sweeps", "5000000000"},
                                   {"Comment", ""}};
  std::vector<PngText> fields;
  for (const auto& [key, text] : texts) fields.push_back({key, text});
  std::ofstream(folder / "image.png", std::ios::binary) << encodePng(image, fields);
  EXPECT_EQ(textsOf(folder / "image.png"), texts);
  EXPECT_EQ(readPng(folder / "image.png").rgb, image.rgb);
}

TEST(Png, TextsComeBeforeThePixelsAndChangeNothingElse) {
  const Image image = gradient(20, 30);
  const std::string plain = encodePng(image), withText = encodePng(image, {{"Sweeps", "12"}});
  const std::size_t pixels = plain.find("IDAT"), later = withText.find("IDAT");
  EXPECT_LT(withText.find("tEXtSweeps"), later);
  EXPECT_EQ(withText.substr(later), plain.substr(pixels));
}

TEST(Png, OfNoPixelsIsAnError) { EXPECT_THROW(encodePng(Image{}), std::runtime_error); }

}  // namespace
}  // namespace quorvane
