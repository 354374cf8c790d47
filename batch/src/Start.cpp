#include "batch/Start.h"

#include <charconv>

#include "batch/Messages.h"

namespace quorvane {
namespace {

/// Work for an option, whose name begins the line of an error.
template <typename Work>
auto forOption(const char* option, const Work& work) {
  try {
    return work();
  } catch (const SettingError& error) {
    throw SettingError(std::string(option) + ": " + error.what());
  }
}

LatticeSides sidesIn(const std::string& text) {
  LatticeSides sides{0, 0};
  const char* last = text.data() + text.size();
  const auto first = std::from_chars(text.data(), last, sides.imax);
  if (first.ec == std::errc{} && first.ptr != last && *first.ptr == 'x') {
    const auto second = std::from_chars(first.ptr + 1, last, sides.jmax);
    const auto fits = [](int side) { return side >= 1 && side <= kMaxSide; };
    if (second.ec == std::errc{} && second.ptr == last && fits(sides.imax) && fits(sides.jmax)) return sides;
  }
  throw SettingError(inQuotes(text) + " is not IxJ with sides from 1 to " + std::to_string(kMaxSide) +
                     ", such as 128x64");
}

}  // namespace

Start startFrom(const StartWords& words) {
  Start start{.seed = words.seed, .settings = {}, .remake = {}, .fill = {}};
  for (const std::string& setting : words.settings)
    start.settings.push_back(forOption("--set", [&] { return settingIn(setting); }));
  if (words.remake) start.remake = forOption("--remake", [&] { return sidesIn(*words.remake); });
  if (words.fill) start.fill = forOption("--fill", [&] { return sharesIn(*words.fill); });
  return start;
}

void changeBeforeRun(LatticeModel& model, const Start& start) {
  for (const Setting& setting : start.settings) forOption("--set", [&] { apply(setting, model); });
  if (start.remake) model.initializeLatticeModel(-1, start.remake->imax, start.remake->jmax);
  if (!start.fill.empty()) forOption("--fill", [&] { fill(model, start.fill); });
}

}  // namespace quorvane
