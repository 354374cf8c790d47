#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace quorvane {

/// A moment in UTC as ISO 8601, to the second: "2026-11-22T23:40:00Z".
std::string utcText(std::chrono::system_clock::time_point moment);

/// True if a text has that form, with a month of a year, a day of a month and so on.
bool isUtcText(std::string_view text);

}  // namespace quorvane
