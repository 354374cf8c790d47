#include "OutputSupport.h"

#include <png.h>

#include <stdexcept>

namespace quorvane {

Image readPng(const std::filesystem::path& file) {
  png_image png = {};
  png.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&png, file.c_str())) throw std::runtime_error(png.message);
  if (png.format != PNG_FORMAT_RGB) throw std::runtime_error("not 8-bit RGB");
  Image image{static_cast<int>(png.width), static_cast<int>(png.height), {}};
  image.rgb.resize(PNG_IMAGE_SIZE(png));
  if (!png_image_finish_read(&png, nullptr, image.rgb.data(), 0, nullptr))
    throw std::runtime_error(png.message);
  return image;
}

std::vector<int> pixelAt(const Image& image, int x, int y) {
  const auto* pixel = image.rgb.data() + 3 * (y * image.width + x);
  return {pixel[0], pixel[1], pixel[2]};
}

}  // namespace quorvane
