#pragma once

#include <string>

#include "output/LatticePicture.h"

namespace quorvane {

/// The bytes of a PNG file, 8-bit RGB, of an image with at least one pixel. The same image gives the same
/// bytes. Throws std::runtime_error where the library fails.
std::string encodePng(const Image& image);

}  // namespace quorvane
