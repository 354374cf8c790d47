#include "record/Time.h"

#include <ctime>
#include <iterator>

namespace quorvane {
namespace {

constexpr const char* kFormat = "%Y-%m-%dT%H:%M:%SZ";

std::string textOf(const std::tm& parts) {
  char text[64];
  return {text, std::strftime(text, std::size(text), kFormat, &parts)};
}

}  // namespace

std::string utcText(std::chrono::system_clock::time_point moment) {
  const std::time_t seconds = std::chrono::system_clock::to_time_t(moment);
  std::tm parts = {};
  ::gmtime_r(&seconds, &parts);
  return textOf(parts);
}

bool isUtcText(std::string_view text) {
  const std::string whole(text);
  std::tm parts = {};
  const char* end = ::strptime(whole.c_str(), kFormat, &parts);
  constexpr std::size_t length = 20;
  if (!end || *end != '\0' || whole.size() != length) return false;
  // A day that the month does not have is moved to the next one.
  std::tm moved = parts;
  const std::time_t seconds = ::timegm(&moved);
  return ::gmtime_r(&seconds, &moved) && textOf(moved) == whole;
}

}  // namespace quorvane
