#pragma once

#include <chrono>
#include <random>

namespace quorvane {

/// Random moments after the starts of runs of the same kind, at which to kill them. The speed of a machine
/// changes while others use it. So the range of the moments follows the runs: it shrinks with each run that
/// ended before its moment, and grows a little with each that was killed. About four of five runs are killed.
class KillMoments {
 public:
  std::chrono::microseconds next() {
    return std::chrono::microseconds(
        std::uniform_int_distribution<int>(0, static_cast<int>(longest_))(random_));
  }
  void add(bool killed) { longest_ *= killed ? kGrowth : kShrinkage; }

 private:
  static constexpr double kGrowth = 1.05, kShrinkage = 0.8;

  double longest_ = 20'000;  // microseconds
  std::mt19937 random_{4711};
};

}  // namespace quorvane
