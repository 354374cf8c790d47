#pragma once

#include <cmath>

#include "engine/f_ran0.h"

namespace quorvane {

/// The next draws of the process-wide source, without making them.
class ForeseenDraws {
 public:
  double real() { return ahead_.next() / RandomSource::maxran; }
  int whole(int n) { return static_cast<int>(std::floor(real() * n) + 1.0); }

  /// The number of draws that the process has made beyond those foreseen here, which then count as foreseen;
  /// -1 if more than ten million.
  int sinceLast() {
    constexpr int most = 10'000'000;
    const double next = RandomSource(processRandomSource).next();
    // The probability that a 31-bit value repeats by chance is negligible.
    int draws = 0;
    while (ahead_.next() != next)
      if (++draws > most) return -1;
    ahead_ = processRandomSource;
    return draws;
  }

 private:
  RandomSource ahead_ = processRandomSource;
};

/// The number of draws that the function makes from the process-wide source; -1 if more than ten million.
template <class Function>
int drawsMadeBy(Function&& function) {
  ForeseenDraws draws;
  function();
  return draws.sinceLast();
}

/// During its lifetime, every draw of the process-wide source is value / 2^31.
template <int value>
class ConstantDraws {
 public:
  ConstantDraws() { processRandomSource = RandomSource(PlatformRand{&seedNothing, &draw}); }
  ~ConstantDraws() { processRandomSource = kept_; }
  ConstantDraws(const ConstantDraws&) = delete;
  ConstantDraws& operator=(const ConstantDraws&) = delete;

 private:
  static void seedNothing(unsigned) {}
  static int draw() { return value; }

  RandomSource kept_ = processRandomSource;
};

using SmallestDraws = ConstantDraws<0>;
using LargestDraws = ConstantDraws<2147483647>;

}  // namespace quorvane
