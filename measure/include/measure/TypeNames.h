#pragma once

#include <span>
#include <string>
#include <string_view>

namespace quorvane {

/// The index of the pixel type that a text stands for: its name, its index, or # and its index.
///
/// Throws MeasureError with the types that there are if the text fits no type, and with those that it fits if
/// it fits several. # is always followed by an index.
int resolveType(std::string_view text, std::span<const std::string> names);

/// A text in quotation marks, on one line: control characters are shown as question marks.
std::string quotedOnOneLine(std::string_view text);

}  // namespace quorvane
