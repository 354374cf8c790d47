#include "batch/Progress.h"

#include <utility>

namespace quorvane {

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
    shorter.append(", ").append(timeInWords(elapsed.count() / partNow - elapsed.count())).append(" left");
  std::string longer = sweeps;
  longer.append(", ").append(shorter);
  for (std::string* text : {&longer, &shorter})
    if (static_cast<int>(text->size()) <= columns) return std::move(*text);
  return percent;
}

void Progress::show(std::int64_t done) {
  line_.show(
      [&](int columns) { return progressText(done, total_, Clock::now() - start_, columns, before_); });
}

}  // namespace quorvane
