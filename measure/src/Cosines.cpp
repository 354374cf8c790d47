#include "Cosines.h"

#include <numbers>

namespace quorvane {
namespace {

/// The Taylor series first * (1 - x^2 / (a (a + 1)) * (1 - x^2 / ((a + 2) (a + 3)) * ...)) for x up to pi /
/// 4, where eleven terms are more than a double can hold.
double series(double first, double x, int a) {
  constexpr int terms = 11;
  double sum = 1.0;
  for (int k = terms - 1; k >= 0; --k) {
    const double divisor = (a + 2 * k) * (a + 2 * k + 1);
    sum = 1.0 - x * x / divisor * sum;
  }
  return first * sum;
}

/// cos(pi * p / n) for 0 <= 2 p <= n.
double inFirstQuadrant(int p, int n) {
  const auto angle = [](int part, int whole) { return std::numbers::pi * part / whole; };
  if (4 * p <= n) return series(1.0, angle(p, n), 1);
  const double rest = angle(n - 2 * p, 2 * n);
  return series(rest, rest, 2);
}

}  // namespace

std::vector<double> cosinesOfATurn(int n) {
  std::vector<double> cosines;
  for (int k = 0; k < n; ++k) {
    // The angle is pi * p / n.
    const int p = 2 * k > n ? 2 * (n - k) : 2 * k;
    cosines.push_back(2 * p > n ? -inFirstQuadrant(n - p, n) : inFirstQuadrant(p, n));
  }
  return cosines;
}

}  // namespace quorvane
