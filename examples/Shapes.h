#pragma once

#include <cmath>
#include <random>

namespace quorvane {

inline double distance(double i, double j, double centreI, double centreJ) {
  return std::hypot(i - centreI, j - centreJ);
}

/// Random choices that are the same on every platform, unlike the distributions of the standard library.
class Chance {
 public:
  /// True with probability 1/n.
  bool oneIn(unsigned times) { return random_() % times == 0; }

  /// A whole number from 0 to below the bound.
  int below(unsigned bound) { return static_cast<int>(random_() % bound); }

  /// True with the given probability; never for 0 or less.
  bool happens(double probability) {
    constexpr double range = 4294967296.0;
    return static_cast<double>(random_()) / range < probability;
  }

 private:
  std::mt19937 random_{1};
};

}  // namespace quorvane
