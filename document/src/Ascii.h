#pragma once

#include <algorithm>
#include <string_view>

namespace quorvane {

/// The position of the first character outside 7-bit ASCII, or npos.
inline std::size_t findNonAscii(std::string_view text) {
  const auto found =
      std::find_if(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) > 0x7f; });
  return found == text.end() ? std::string_view::npos : static_cast<std::size_t>(found - text.begin());
}

}  // namespace quorvane
