#include "output/Png.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdio>
#include <stdexcept>

namespace quorvane {
namespace {

constexpr const char* kOutOfMemory = "out of memory";

/// The data of libpng's callbacks.
struct Output {
  std::string bytes;
  /// Of fixed size, since an allocation may be what failed.
  std::array<char, 128> error = {};

  void fail(const char* why) noexcept { std::snprintf(error.data(), error.size(), "%s", why); }
};

[[noreturn]] void onError(png_structp png, png_const_charp message) {
  static_cast<Output*>(png_get_error_ptr(png))->fail(message);
  png_longjmp(png, 1);
}

void onWarning(png_structp /*png*/, png_const_charp /*message*/) {}

void append(png_structp png, png_bytep bytes, std::size_t count) {
  // libpng is C code, through which no exception may pass.
  bool done = false;
  try {
    static_cast<Output*>(png_get_io_ptr(png))->bytes.append(reinterpret_cast<const char*>(bytes), count);
    done = true;
  } catch (const std::exception&) {
  }
  if (!done) png_error(png, kOutOfMemory);
}

class Writer {
 public:
  explicit Writer(Output& output)
      : png_(png_create_write_struct(PNG_LIBPNG_VER_STRING, &output, onError, onWarning)) {
    if (png_) info_ = png_create_info_struct(png_);
    if (!info_) output.fail(kOutOfMemory);
    if (info_) png_set_write_fn(png_, &output, append, nullptr);
  }
  ~Writer() { png_destroy_write_struct(&png_, &info_); }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  /// False if libpng has failed: it then jumps back here, so no local object may need a destructor.
  bool write(const Image& image, const std::vector<png_text>& texts) noexcept {
    if (!info_ || setjmp(png_jmpbuf(png_))) return false;
    png_set_IHDR(png_, info_, static_cast<png_uint_32>(image.width), static_cast<png_uint_32>(image.height),
                 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_set_sRGB(png_, info_, PNG_sRGB_INTENT_PERCEPTUAL);
    if (!texts.empty()) png_set_text(png_, info_, texts.data(), static_cast<int>(texts.size()));
    png_write_info(png_, info_);
    const std::size_t row = std::size_t{3} * static_cast<std::size_t>(image.width);
    for (int y = 0; y < image.height; ++y)
      png_write_row(png_, image.rgb.data() + static_cast<std::size_t>(y) * row);
    png_write_end(png_, nullptr);
    return true;
  }

 private:
  png_structp png_;
  png_infop info_ = nullptr;
};

/// A tEXt field if ASCII suffices, else iTXt, which is UTF-8.
png_text fieldOf(const PngText& text) {
  const bool ascii = std::all_of(text.text.begin(), text.text.end(),
                                 [](char c) { return static_cast<unsigned char>(c) < 128; });
  png_text field = {};
  field.compression = ascii ? PNG_TEXT_COMPRESSION_NONE : PNG_ITXT_COMPRESSION_NONE;
  // libpng copies both and writes to neither.
  field.key = const_cast<char*>(text.key.c_str());
  field.text = const_cast<char*>(text.text.c_str());
  (ascii ? field.text_length : field.itxt_length) = text.text.size();
  return field;
}

}  // namespace

std::string encodePng(const Image& image, const std::vector<PngText>& texts) {
  std::vector<png_text> fields;
  std::transform(texts.begin(), texts.end(), std::back_inserter(fields), fieldOf);
  Output output;
  Writer writer(output);
  if (!writer.write(image, fields)) throw std::runtime_error(output.error.data());
  return std::move(output.bytes);
}

}  // namespace quorvane
