#include "CumulantScaling.h"

#include <cmath>

#include "TransferMatrix.h"

namespace quorvane::validation {
namespace {

constexpr int kFirstSize = 6;
constexpr double kInfinite = 1 - 1 / (3 * 0.856216);

using Vector = std::array<double, 3>;
using Square = std::array<Vector, 3>;

constexpr Vector kOfCorrection = {-1.75, -2.0, -3.0};
constexpr Vector kOfSlope = {1.0, -0.75, -1.0};
constexpr Vector kOfCurvature = {2.0, 1.0, 0.0};

double determinant(const Square& m) {
  return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
         m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
         m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
}

/// Cramer's rule.
Vector solve(const Square& m, const Vector& right) {
  Vector solution{};
  for (std::size_t column = 0; column < 3; ++column) {
    Square replaced = m;
    for (std::size_t row = 0; row < 3; ++row) replaced[row][column] = right[row];
    solution[column] = determinant(replaced) / determinant(m);
  }
  return solution;
}

/// The sum of three powers of L with given values at the three sizes.
Vector amplitudes(const Vector& exponents, const Vector& values) {
  Square powers{};
  for (std::size_t row = 0; row < 3; ++row)
    for (std::size_t k = 0; k < 3; ++k)
      powers[row][k] = std::pow(kFirstSize + static_cast<int>(row), exponents[k]);
  return solve(powers, values);
}

double sumOfPowers(const Vector& exponents, const Vector& amplitudes, double L) {
  double sum = 0.0;
  for (std::size_t k = 0; k < 3; ++k) sum += amplitudes[k] * std::pow(L, exponents[k]);
  return sum;
}

}  // namespace

CumulantScaling::CumulantScaling(double criticalCoupling) : criticalCoupling_(criticalCoupling) {
  constexpr double step = 1e-4;
  Vector corrections{}, slopes{}, curvatures{};
  for (std::size_t row = 0; row < 3; ++row) {
    const auto exact = [row](double K) {
      return exactIsingMoments(kFirstSize + static_cast<int>(row), K).cumulant();
    };
    const double below = exact(criticalCoupling - step), at = exact(criticalCoupling),
                 above = exact(criticalCoupling + step);
    corrections[row] = at - kInfinite;
    slopes[row] = (above - below) / (2 * step);
    curvatures[row] = (above - 2 * at + below) / (step * step);
  }
  corrections_ = amplitudes(kOfCorrection, corrections);
  slopes_ = amplitudes(kOfSlope, slopes);
  curvatures_ = amplitudes(kOfCurvature, curvatures);
}

double CumulantScaling::cumulant(double L) const {
  return kInfinite + sumOfPowers(kOfCorrection, corrections_, L);
}

double CumulantScaling::slope(double L) const { return sumOfPowers(kOfSlope, slopes_, L); }

double CumulantScaling::curvature(double L) const { return sumOfPowers(kOfCurvature, curvatures_, L); }

double CumulantScaling::crossing(double L1, double L2) const {
  const double difference = cumulant(L2) - cumulant(L1);
  const double slopes = slope(L2) - slope(L1), curvatures = curvature(L2) - curvature(L1);
  // The root that tends to -difference / slopes as the curvature vanishes.
  return criticalCoupling_ -
         2 * difference / (slopes + std::sqrt(slopes * slopes - 2 * curvatures * difference));
}

}  // namespace quorvane::validation
