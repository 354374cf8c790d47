#include "batch/TerminalLine.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdint>
#include <iostream>

namespace quorvane {
namespace {

constexpr const char* kEraseLine = "\r\033[K";

int columnsOfTerminal() {
  constexpr int usual = 80;
  winsize size = {};
  return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

}  // namespace

std::string timeInWords(double seconds) {
  constexpr double longest = 100.0 * 365 * 86400;
  if (!(seconds < longest)) return "more than 100 years";
  const auto whole = static_cast<std::int64_t>(seconds);
  const auto two = [](std::int64_t large, const char* unit, std::int64_t small, const char* smallUnit) {
    return std::to_string(large) + unit + std::to_string(small) + smallUnit;
  };
  constexpr std::int64_t minute = 60, hour = 60 * minute, day = 24 * hour;
  if (whole >= day) return two(whole / day, " d ", whole % day / hour, " h");
  if (whole >= hour) return two(whole / hour, " h ", whole % hour / minute, " min");
  if (whole >= minute) return two(whole / minute, " min ", whole % minute, " s");
  return std::to_string(whole) + " s";
}

TerminalLine::TerminalLine(bool resultsOnOutput)
    : onTerminal_(::isatty(STDERR_FILENO) == 1 && !(resultsOnOutput && ::isatty(STDOUT_FILENO) == 1)) {}

TerminalLine::~TerminalLine() {
  if (shown_) std::cerr << kEraseLine << std::flush;
}

void TerminalLine::show(const std::function<std::string(int columns)>& textFor) {
  if (!onTerminal_) return;
  const auto now = Clock::now();
  if (shown_ && now < next_) return;
  constexpr std::chrono::milliseconds interval{300};
  next_ = now + interval;
  shown_ = true;
  // A character in the last column makes some terminals wrap.
  std::cerr << kEraseLine << textFor(columnsOfTerminal() - 1) << std::flush;
}

}  // namespace quorvane
