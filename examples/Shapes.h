#pragma once

#include <cmath>
#include <random>

namespace quorvane {

inline double distance(double i, double j, double centreI, double centreJ) {
  return std::hypot(i - centreI, j - centreJ);
}

/// Chances that are the same on every platform, which those of the library's distributions are not.
class Chance {
 public:
  /// True once in so many, on average.
  bool oneIn(unsigned times) { return random_() % times == 0; }

  /// A whole number from 0 to below the bound.
  int below(unsigned bound) { return static_cast<int>(random_() % bound); }

  /// True with the probability; a probability of 0 or less is never true.
  bool happens(double probability) {
    constexpr double range = 4294967296.0;
    return static_cast<double>(random_()) / range < probability;
  }

 private:
  std::mt19937 random_{1};
};

}  // namespace quorvane
