#include "Ticks.h"

#include <cmath>

namespace quorvane {
namespace {

std::vector<int> digitsOver(double decades) {
  constexpr double few = 3.0;
  if (decades > few) return {1};
  if (decades > 1.0) return {1, 2, 5};
  return {1, 2, 3, 4, 5, 6, 7, 8, 9};
}

}  // namespace

std::vector<double> logarithmicTicks(double first, double last) {
  std::vector<double> ticks;
  const std::vector<int> digits = digitsOver(std::log10(last / first));
  const int lowest = static_cast<int>(std::floor(std::log10(first)));
  const int highest = static_cast<int>(std::floor(std::log10(last)));
  for (int power = lowest; power <= highest; ++power)
    for (const int digit : digits) {
      const double tick = digit * std::pow(10.0, power);
      if (tick >= first && tick <= last) ticks.push_back(tick);
    }
  return ticks;
}

}  // namespace quorvane
