#pragma once

#include <charconv>

#ifndef __cpp_lib_to_chars
#include <locale.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#endif

namespace quorvane {

#ifdef __cpp_lib_to_chars

/// std::from_chars for a double.
inline std::from_chars_result realFromChars(const char* first, const char* last, double& value) {
  return std::from_chars(first, last, value);
}

#else

/// Skips decimal digits.
inline const char* behindDigits(const char* first, const char* last) {
  return std::find_if(first, last, [](char c) { return c < '0' || c > '9'; });
}

/// std::from_chars for a double that begins with a digit, or with a point and a digit. libc++ has none before
/// its version 20, so the C library's parser stands in, which rounds the same.
inline std::from_chars_result realFromChars(const char* first, const char* last, double& value) {
  const char* end = behindDigits(first, last);
  if (end != last && *end == '.') end = behindDigits(end + 1, last);
  const bool isZero = std::none_of(first, end, [](char c) { return c >= '1' && c <= '9'; });
  if (end != last && (*end == 'e' || *end == 'E')) {
    const char* digits = end + 1;
    if (digits != last && (*digits == '+' || *digits == '-')) ++digits;
    if (behindDigits(digits, last) != digits) end = behindDigits(digits, last);
  }
  static const locale_t plain = ::newlocale(LC_ALL_MASK, "C", nullptr);
  const double parsed = ::strtod_l(std::string(first, end).c_str(), nullptr, plain);
  if (std::isinf(parsed) || (parsed == 0.0 && !isZero)) return {end, std::errc::result_out_of_range};
  value = parsed;
  return {end, std::errc()};
}

#endif

}  // namespace quorvane
