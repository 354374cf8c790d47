#include "output/Png.h"

#include <png.h>

#include <stdexcept>

namespace quorvane {

std::string encodePng(const Image& image) {
  png_image png = {};
  png.version = PNG_IMAGE_VERSION;
  png.width = static_cast<png_uint_32>(image.width);
  png.height = static_cast<png_uint_32>(image.height);
  png.format = PNG_FORMAT_RGB;

  const auto write = [&](void* buffer, png_alloc_size_t& size) {
    if (!png_image_write_to_memory(&png, buffer, &size, 0, image.rgb.data(), 0, nullptr))
      throw std::runtime_error(png.message);
  };
  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(png);
  std::string bytes(size, '\0');
  write(bytes.data(), size);
  bytes.resize(size);
  return bytes;
}

}  // namespace quorvane
