#include "study/TimeSeries.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace quorvane {
namespace {

/// The sum of the products of deviations that are t measurements apart, over their number.
double covariance(const std::vector<double>& deviations, std::size_t t) {
  double sum = 0.0;
  for (std::size_t k = 0; k + t < deviations.size(); ++k) sum += deviations[k] * deviations[k + t];
  return sum / static_cast<double>(deviations.size() - t);
}

/// A constant that has no exact mean would have deviations, all equal.
bool isConstant(const std::vector<double>& values) {
  return std::adjacent_find(values.begin(), values.end(), std::not_equal_to<>()) == values.end();
}

/// The longest window: a correlation that lasts longer cannot be measured in so few values, and would take
/// long.
std::size_t longestWindow(std::size_t n) {
  constexpr std::size_t part = 2, most = 20'000;
  return std::min(n / part, most);
}

double autocorrelationTime(const std::vector<double>& values, double mean) {
  constexpr double windowInTimes = 5.0, unknown = std::numeric_limits<double>::quiet_NaN();
  if (isConstant(values)) return unknown;
  std::vector<double> deviations;
  deviations.reserve(values.size());
  for (const double value : values) deviations.push_back(value - mean);
  const double variance = covariance(deviations, 0);
  if (!(variance > 0.0) || !std::isfinite(variance)) return unknown;
  double tau = 0.5;
  std::size_t t = 1;
  for (; static_cast<double>(t) < windowInTimes * tau; ++t) {
    if (t > longestWindow(deviations.size())) return unknown;
    tau += covariance(deviations, t) / variance;
  }
  return tau;
}

}  // namespace

Moments momentsOf(const std::vector<double>& values) {
  Moments sums{0.0, 0.0, 0.0, 0.0};
  for (const double value : values) {
    const double square = value * value;
    sums.mean += value;
    sums.square += square;
    sums.fourth += square * square;
  }
  const auto n = static_cast<double>(values.size());
  const double mean = sums.mean / n;
  return {mean, sums.square / n, sums.fourth / n, autocorrelationTime(values, mean)};
}

}  // namespace quorvane
