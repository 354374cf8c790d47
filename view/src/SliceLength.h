#pragma once

#include <algorithm>
#include <chrono>
#include <cmath>

namespace quorvane {

/// Finds how many columns of a frame are drawn at a time, so that a slice takes about 5 ms. Columns of the
/// same lattice take about the same time.
class SliceLength {
 public:
  int columns() const { return columns_; }

  /// Corrects the length after a slice. It grows slowly, since a first slice says little about the others.
  void sliceTook(std::chrono::nanoseconds time) {
    constexpr std::chrono::duration<double, std::milli> goal{5.0};
    const double fitting = columns_ * (goal / std::max(time, std::chrono::nanoseconds{1}));
    columns_ = static_cast<int>(std::clamp(std::floor(fitting), 1.0, std::min(2.0 * columns_, kMost)));
  }

 private:
  static constexpr double kMost = 256.0;

  int columns_ = 4;
};

}  // namespace quorvane
