#include "batch/Progress.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <iostream>
#include <utility>

namespace quorvane {
namespace {

constexpr const char* kEraseLine = "\r\033[K";

/// A time in its two largest units: "3 min 20 s".
std::string timeText(double seconds) {
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

int columnsOfTerminal() {
  constexpr int usual = 80;
  winsize size = {};
  return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

}  // namespace

std::string progressText(std::int64_t done, std::int64_t total, std::chrono::duration<double> elapsed,
                         int columns, std::int64_t before) {
  const double part = static_cast<double>(done) / static_cast<double>(total);
  const double partNow = static_cast<double>(done - before) / static_cast<double>(total - before);
  std::string percent = std::to_string(static_cast<int>(100.0 * part)) + " %";
  const std::string sweeps = "sweep " + std::to_string(done) + " of " + std::to_string(total);
  // The first second is no estimate of the rest.
  const bool known = done > before && elapsed >= std::chrono::seconds(1);
  std::string shorter = percent;
  if (known)
    shorter.append(", ").append(timeText(elapsed.count() / partNow - elapsed.count())).append(" left");
  std::string longer = sweeps;
  longer.append(", ").append(shorter);
  for (std::string* text : {&longer, &shorter})
    if (static_cast<int>(text->size()) <= columns) return std::move(*text);
  return percent;
}

Progress::Progress(std::int64_t total, bool resultsOnOutput, std::int64_t before)
    : total_(total),
      before_(before),
      onTerminal_(::isatty(STDERR_FILENO) == 1 && !(resultsOnOutput && ::isatty(STDOUT_FILENO) == 1)) {}

Progress::~Progress() {
  if (shown_) std::cerr << kEraseLine << std::flush;
}

void Progress::show(std::int64_t done) {
  if (!onTerminal_) return;
  const auto now = Clock::now();
  if (shown_ && now < next_) return;
  constexpr std::chrono::milliseconds interval{300};
  next_ = now + interval;
  shown_ = true;
  // A character in the last column makes some terminals wrap.
  const std::string text = progressText(done, total_, now - start_, columnsOfTerminal() - 1, before_);
  std::cerr << kEraseLine << text << std::flush;
}

}  // namespace quorvane
