#include "study/TimeSeries.h"

#include <cmath>
#include <limits>

namespace quorvane {
namespace {

/// The sum of the products of deviations that are t measurements apart, over their number.
double covariance(const std::vector<double>& deviations, std::size_t t) {
  double sum = 0.0;
  for (std::size_t k = 0; k + t < deviations.size(); ++k) sum += deviations[k] * deviations[k + t];
  return sum / static_cast<double>(deviations.size() - t);
}

double autocorrelationTime(const std::vector<double>& values, double mean) {
  constexpr double windowInTimes = 5.0;
  std::vector<double> deviations;
  deviations.reserve(values.size());
  for (const double value : values) deviations.push_back(value - mean);
  const double variance = values.empty() ? 0.0 : covariance(deviations, 0);
  if (!(variance > 0.0) || !std::isfinite(variance)) return std::numeric_limits<double>::quiet_NaN();
  double tau = 0.5;
  for (std::size_t t = 1; t < deviations.size() && static_cast<double>(t) < windowInTimes * tau; ++t)
    tau += covariance(deviations, t) / variance;
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
