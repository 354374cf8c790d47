#include "study/Statistics.h"

#include <cmath>
#include <limits>

namespace quorvane {
namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

double variance(const ReplicaSums& sums) {
  const auto n = static_cast<double>(sums.n);
  const double mean = sums.mean / n;
  return sums.square / n - mean * mean;
}

}  // namespace

void ReplicaSums::add(const Moments& moments) {
  ++n;
  mean += moments.mean;
  square += moments.square;
  fourth += moments.fourth;
}

ReplicaSums ReplicaSums::without(const Moments& moments) const {
  ReplicaSums rest = *this;
  --rest.n;
  rest.mean -= moments.mean;
  rest.square -= moments.square;
  rest.fourth -= moments.fourth;
  return rest;
}

double average(const ReplicaSums& sums, double /*numSites*/) {
  return sums.mean / static_cast<double>(sums.n);
}

double susceptibility(const ReplicaSums& sums, double numSites) { return numSites * variance(sums); }

double specificHeat(const ReplicaSums& sums, double numSites) { return variance(sums) / numSites; }

double binderCumulant(const ReplicaSums& sums, double /*numSites*/) {
  const auto n = static_cast<double>(sums.n);
  const double square = sums.square / n;
  return 1.0 - sums.fourth / n / (3.0 * square * square);
}

void Jackknife::leaveOut(const Moments& moments) {
  if (sums_.n < 2) return;
  const double difference = function_(sums_.without(moments), numSites_) - function_(sums_, numSites_);
  sum_ += difference;
  squares_ += difference * difference;
}

Estimate Jackknife::estimate() const {
  const double all = function_(sums_, numSites_);
  if (sums_.n < 2) return {all, kUnknown};
  const auto n = static_cast<double>(sums_.n);
  const double mean = sum_ / n;
  const double scatter = std::fmax(squares_ / n - mean * mean, 0.0);
  return {all, std::isfinite(all) ? std::sqrt((n - 1.0) * scatter) : kUnknown};
}

}  // namespace quorvane
