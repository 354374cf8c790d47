#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "output/LatticePicture.h"

namespace quorvane {

/// An 8-bit RGB image read back from a PNG file.
Image readPng(const std::filesystem::path& file);

/// A text field's key and its text in UTF-8.
using Text = std::pair<std::string, std::string>;

/// The text fields of a PNG file, in order.
std::vector<Text> textsOf(const std::filesystem::path& file);

/// Red, green, blue of a pixel, x from the left and y from the top.
std::vector<int> pixelAt(const Image& image, int x, int y);

}  // namespace quorvane
