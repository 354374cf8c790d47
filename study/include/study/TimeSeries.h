#pragma once

#include <vector>

namespace quorvane {

/// What a run keeps of one column.
struct Moments {
  double mean, square, fourth;  ///< averages over the measurements of x, x^2 and x^4
  double tau;                   ///< integrated autocorrelation time in measurements; nan if it is unknown
};

/// The averages of equally spaced values, each a sum in the order of the measurements over their number.
///
/// tau = 1/2 + sum of rho(t) for t = 1 to the first window W with W >= 5 tau (Sokal, Monte Carlo Methods in
/// Statistical Mechanics, 1997, section 3), where rho(t) is the correlation of the deviations from the mean,
/// of which there are n - t, over the variance. nan for a constant column, for one with a value that is not
/// finite, and if the window would be longer than n / 2 or 20,000. Time: n times the window.
Moments momentsOf(const std::vector<double>& values);

}  // namespace quorvane
