#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace quorvane {

/// The position of the first character outside 7-bit ASCII, or npos.
inline std::size_t findNonAscii(std::string_view text) {
  const auto found =
      std::find_if(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) > 0x7f; });
  return found == text.end() ? std::string_view::npos : static_cast<std::size_t>(found - text.begin());
}

/// "line 3, column 5", both counted from 1.
inline std::string placeOf(std::string_view text, std::size_t position) {
  const std::string_view before = text.substr(0, position);
  const auto line = 1 + std::count(before.begin(), before.end(), '\n');
  const std::size_t start = before.rfind('\n') + 1;  // npos + 1 is 0
  return "line " + std::to_string(line) + ", column " + std::to_string(position - start + 1);
}

}  // namespace quorvane
