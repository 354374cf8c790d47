#pragma once

#include <array>

namespace quorvane::validation {

/// Binder's cumulant of Ising lattices with eight equal neighbours near the critical coupling K_c, to second
/// order in K - K_c, extrapolated in size from the exact values for L = 6, 7 and 8. At K_c it has the
/// form
///
///   U(L) = U + a L^(-7/4) + b L^(-2) + c L^(-3),  U = 1 - 1 / (3 * 0.856216),
///
/// where 0.856216 is the universal value of <m^2>^2 / <m^4> (Kamieniarz and Bloete, J. Phys. A 26, 201,
/// 1993). The first derivative grows as L with the same relative corrections as U, the second as L^2 with a
/// relative correction of order 1 / L from the second order of the scaling field in K - K_c.
class CumulantScaling {
 public:
  explicit CumulantScaling(double criticalCoupling);

  double cumulant(double L) const;
  double slope(double L) const;
  double curvature(double L) const;
  /// The coupling at which the cumulants of two sizes cross.
  double crossing(double L1, double L2) const;

 private:
  double criticalCoupling_;
  std::array<double, 3> corrections_, slopes_, curvatures_;
};

}  // namespace quorvane::validation
