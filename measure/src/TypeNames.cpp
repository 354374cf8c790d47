#include "measure/TypeNames.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <vector>

#include "measure/MeasureError.h"

namespace quorvane {
namespace {

std::optional<int> indexOf(std::string_view digits, std::size_t count) {
  int index = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), index);
  const bool isNumber = result.ec == std::errc() && result.ptr == digits.data() + digits.size();
  if (!isNumber || digits.front() == '-' || static_cast<std::size_t>(index) >= count) return std::nullopt;
  return index;
}

std::string joined(const std::vector<std::string>& parts, const std::string& between) {
  std::string text;
  for (const auto& part : parts) text += (text.empty() ? "" : between) + part;
  return text;
}

std::string numbered(int type) {
  std::string text(1, '#');
  return text += std::to_string(type);
}

std::string allTypes(std::span<const std::string> names) {
  std::vector<std::string> types;
  for (const auto& name : names)
    types.push_back(numbered(static_cast<int>(types.size())) + ' ' + quotedOnOneLine(name));
  return joined(types, ", ");
}

/// Every type that a text without # can mean.
std::vector<int> typesThatFit(std::string_view text, std::span<const std::string> names) {
  std::vector<int> types;
  const auto index = indexOf(text, names.size());
  for (int t = 0; t < static_cast<int>(names.size()); ++t)
    if (index == t || names[static_cast<std::size_t>(t)] == text) types.push_back(t);
  return types;
}

}  // namespace

int resolveType(std::string_view text, std::span<const std::string> names) {
  if (text.empty()) throw MeasureError("a pixel type is missing; there are " + allTypes(names));
  if (text.front() == '#') {
    if (const auto index = indexOf(text.substr(1), names.size())) return *index;
    throw MeasureError("there is no pixel type " + quotedOnOneLine(text) + "; there are " + allTypes(names));
  }
  const auto types = typesThatFit(text, names);
  if (types.size() == 1) return types.front();
  if (types.empty())
    throw MeasureError("there is no pixel type " + quotedOnOneLine(text) + "; there are " + allTypes(names));
  std::vector<std::string> fitting(types.size());
  std::transform(types.begin(), types.end(), fitting.begin(), numbered);
  throw MeasureError(quotedOnOneLine(text) + " can mean the pixel types " + joined(fitting, " and ") +
                     "; write one of these instead");
}

std::string quotedOnOneLine(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    constexpr unsigned char lastControl = 0x1f, del = 0x7f;
    quoted += code <= lastControl || code == del ? '?' : c;
  }
  return quoted + '"';
}

}  // namespace quorvane
