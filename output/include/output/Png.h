#pragma once

#include <string>
#include <vector>

#include "output/LatticePicture.h"

namespace quorvane {

/// A text field of a PNG file. key: 1 to 79 Latin-1 letters, as the format requires; text: UTF-8.
struct PngText {
  std::string key;
  std::string text;
};

/// The bytes of an 8-bit RGB PNG file of an image with at least one pixel, with text fields in the given
/// order. The same arguments give the same bytes. Throws std::runtime_error if libpng fails.
std::string encodePng(const Image& image, const std::vector<PngText>& texts = {});

}  // namespace quorvane
