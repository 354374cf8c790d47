#include "settings/Fill.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "engine/f_ran0.h"

namespace quorvane {
namespace {

/// A type and the sum of the shares up to and with its own.
struct Step {
  int type;
  double upTo;
};

Share shareIn(std::string_view entry) {
  const auto equals = entry.rfind('=');
  if (equals == std::string_view::npos || equals == 0)
    throw SettingError('"' + std::string(entry) + "\" is not NAME=SHARE");
  return {std::string(entry.substr(0, equals)), realIn(entry.substr(equals + 1))};
}

std::vector<Step> stepsOf(const LatticeModel& model, const std::vector<Share>& shares) {
  std::vector<Step> steps;
  double sum = 0.0;
  for (const Share& share : shares) {
    const int type = typeNamed(model, share.type);
    if (std::any_of(steps.begin(), steps.end(), [&](const Step& step) { return step.type == type; }))
      throw SettingError("two shares are of the pixel type \"" + model.getPixelName(type) + '"');
    steps.push_back({type, sum += share.share});
  }
  return steps;
}

/// The last type that has a share takes what rounding leaves above the sum.
int typeAt(const std::vector<Step>& steps, int last, double u) {
  for (const Step& step : steps)
    if (u < step.upTo) return step.type;
  return last;
}

}  // namespace

void requireShares(const std::vector<Share>& shares) {
  constexpr double tolerance = 1e-9;
  double sum = 0.0;
  for (const Share& share : shares) {
    if (!(share.share >= 0.0 && share.share <= 1.0))
      throw SettingError("the share of \"" + share.type + "\" is not from 0 to 1");
    sum += share.share;
  }
  if (!(std::abs(sum - 1.0) <= tolerance)) {
    char digits[32];
    const std::string total(digits, std::to_chars(digits, digits + sizeof digits, sum).ptr);
    throw SettingError("the shares add up to " + total + ", not to 1");
  }
}

std::vector<Share> sharesIn(std::string_view text) {
  std::vector<Share> shares;
  for (std::size_t from = 0; from <= text.size();) {
    const std::size_t comma = std::min(text.find(',', from), text.size());
    shares.push_back(shareIn(text.substr(from, comma - from)));
    from = comma + 1;
  }
  requireShares(shares);
  return shares;
}

void fill(LatticeModel& model, const std::vector<Share>& shares) {
  const std::vector<Step> steps = stepsOf(model, shares);
  int last = 0;
  for (std::size_t k = 0; k < shares.size(); ++k)
    if (shares[k].share > 0.0) last = steps[k].type;
  for (int i = 0; i < model.getIMax(); ++i)
    for (int j = 0; j < model.getJMax(); ++j) model.setSiteValue(i, j, typeAt(steps, last, fRandReal()));
  for (int type = 0; type < model.getNumPixelTypes(); ++type) model.reinitHistory(type);
}

}  // namespace quorvane
