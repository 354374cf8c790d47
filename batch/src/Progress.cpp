#include "batch/Progress.h"

#include <unistd.h>

#include <iostream>

namespace quorvane {

Progress::Progress(std::int64_t total, bool resultsOnOutput)
    : total_(total),
      onTerminal_(::isatty(STDERR_FILENO) == 1 && !(resultsOnOutput && ::isatty(STDOUT_FILENO) == 1)) {}

Progress::~Progress() {
  constexpr const char* eraseLine = "\r\033[K";
  if (shown_) std::cerr << eraseLine << std::flush;
}

void Progress::show(std::int64_t done) {
  if (!onTerminal_) return;
  const auto now = std::chrono::steady_clock::now();
  if (shown_ && now < next_) return;
  constexpr std::chrono::milliseconds interval{300};
  next_ = now + interval;
  shown_ = true;
  std::cerr << "\rsweep " << done << " of " << total_ << std::flush;
}

}  // namespace quorvane
