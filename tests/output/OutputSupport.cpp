#include "OutputSupport.h"

#include <png.h>

#include <cstdio>
#include <memory>
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

std::vector<Text> textsOf(const std::filesystem::path& file) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> opened(std::fopen(file.c_str(), "rb"), std::fclose);
  if (!opened) throw std::runtime_error("cannot be opened");
  png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  png_init_io(png, opened.get());
  png_read_info(png, info);
  png_textp fields = nullptr;
  const int count = png_get_text(png, info, &fields, nullptr);
  std::vector<Text> texts;
  for (int k = 0; k < count; ++k) texts.emplace_back(fields[k].key, fields[k].text);
  png_destroy_read_struct(&png, &info, nullptr);
  return texts;
}

std::vector<int> pixelAt(const Image& image, int x, int y) {
  const auto* pixel = image.rgb.data() + 3 * (y * image.width + x);
  return {pixel[0], pixel[1], pixel[2]};
}

}  // namespace quorvane
