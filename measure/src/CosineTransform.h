#pragma once

#include <vector>

namespace quorvane {

/// How many of x and -x differ on a ring of sites: 1 for 0 and for half the ring, else 2.
constexpr int numberOfSigns(int x, int sites) { return x == 0 || 2 * x == sites ? 1 : 2; }

/// Sums over a and b of f(a, b) cos(2 pi a m / imax) cos(2 pi b n / jmax), for a, m = 0 to imax / 2 and b, n
/// = 0 to jmax / 2, with the terms in a fixed order, so that the sums are the same on every machine.
class CosineTransform {
 public:
  CosineTransform(int imax, int jmax);

  /// f(a, b) is at [a * (jmax / 2 + 1) + b], the sum for m and n at [m * (jmax / 2 + 1) + n]. Valid until the
  /// next call.
  const std::vector<double>& of(const std::vector<double>& f);

 private:
  struct Axis {
    explicit Axis(int sites);
    /// The sums over the rows a of f, for all columns at once: row m of the result.
    void transform(const double* f, std::size_t columns, double* sums);

    std::size_t last;             ///< of a and m
    bool isEven;                  ///< the number of sites
    std::vector<double> cosines;  ///< those of row m are at [m * (last + 1) + a]
    std::vector<double> ofEven, ofOdd;
  };

  Axis alongI_, alongJ_;
  std::vector<double> sums_, turned_, turnedSums_;
};

}  // namespace quorvane
