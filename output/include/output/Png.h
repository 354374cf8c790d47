#pragma once

#include <string>
#include <vector>

#include "output/LatticePicture.h"

namespace quorvane {

/// A text field of a PNG file. The key is one of the format's, 1 to 79 Latin letters; the text is UTF-8.
struct PngText {
  std::string key;
  std::string text;
};

/// The bytes of a PNG file, 8-bit RGB, of an image with at least one pixel, with text fields in the order
/// given. The same arguments give the same bytes. Throws std::runtime_error where the library fails.
std::string encodePng(const Image& image, const std::vector<PngText>& texts = {});

}  // namespace quorvane
