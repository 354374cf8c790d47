#pragma once

namespace quorvane::validation {

/// Moments of the magnetisation of a periodic L by L Ising lattice on which each spin is coupled equally to
/// its eight neighbours: weight exp(K * sum over bonds of s s').
struct IsingMoments {
  double m2, m4;  ///< means of m^2 and m^4, m the magnetisation per site

  /// Binder's cumulant, 1 - m4 / (3 m2^2) (Z. Phys. B 43, 119, 1981).
  double cumulant() const { return 1.0 - m4 / (3.0 * m2 * m2); }
};

/// Exact moments from the trace of the L-th power of the transfer matrix, as a series in a field.
/// L: 3 to 8; the time grows as 2^(3 L). For the method see Onsager, Phys. Rev. 65, 117, 1944.
IsingMoments exactIsingMoments(int L, double K);

/// The exact mean of the sum over bonds of s s', per site.
double exactIsingBonds(int L, double K);

/// The coupling near the critical one at which the cumulants of two sizes are equal.
double exactCumulantCrossing(int L1, int L2);

}  // namespace quorvane::validation
