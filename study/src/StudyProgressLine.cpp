#include "StudyProgressLine.h"

#include <array>
#include <cstdio>

#include "batch/TerminalLine.h"

namespace quorvane {
namespace {

/// "[=====     ]", with the share of the runs that are done.
std::string bar(double share) {
  constexpr int length = 20;
  const int filled = static_cast<int>(share * length);
  return '[' + std::string(static_cast<std::size_t>(filled), '=') +
         std::string(static_cast<std::size_t>(length - filled), ' ') + ']';
}

std::string rateText(double perSecond) {
  char text[40];
  std::snprintf(text, sizeof text, "%.3g", perSecond);
  return std::string(text) + " a second";
}

}  // namespace

std::string studyProgressText(const StudyProgress& progress, std::chrono::duration<double> elapsed,
                              int columns) {
  const double share =
      static_cast<double>(progress.done + progress.failed) / static_cast<double>(progress.total);
  std::string counts = std::to_string(progress.done) + " of " + std::to_string(progress.total) + " runs";
  if (progress.failed > 0) counts += ", " + std::to_string(progress.failed) + " failed";
  std::string rest;
  // The first second is no estimate of the rest.
  if (const std::int64_t made = progress.done - progress.before;
      made > 0 && elapsed >= std::chrono::seconds(1)) {
    const double rate = static_cast<double>(made) / elapsed.count();
    const auto left = static_cast<double>(progress.total - progress.done - progress.failed);
    rest.append(", ").append(rateText(rate)).append(", ").append(timeInWords(left / rate)).append(" left");
  }
  const std::array<std::string, 3> texts{bar(share) + ' ' + counts + rest, counts + rest, counts};
  for (const std::string& text : texts)
    if (static_cast<int>(text.size()) <= columns) return text;
  return std::to_string(static_cast<int>(100.0 * share)) + " %";
}

}  // namespace quorvane
