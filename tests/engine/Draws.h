#pragma once

#include <cmath>
#include <cstdint>

#include "engine/f_ran0.h"

namespace quorvane {

/// The draws that come next from the process-wide source, without making them.
class Foresight {
 public:
  double real() { return ahead_.next() / RandomSource::maxran; }
  int whole(int n) { return static_cast<int>(std::floor(real() * n) + 1.0); }

 private:
  RandomSource ahead_ = processRandomSource;
};

/// How many draws the function makes from the process-wide source; -1 if more than 20,000.
template <class Function>
int drawsMadeBy(Function&& function) {
  RandomSource before = processRandomSource;
  function();
  const auto standsAt = [](RandomSource a, RandomSource b) {
    for (int k = 0; k < 4; ++k)
      if (a.next() != b.next()) return false;
    return true;
  };
  for (int draws = 0; draws <= 20'000; ++draws) {
    if (standsAt(before, processRandomSource)) return draws;
    before.next();
  }
  return -1;
}

/// While it lives, every draw of the process-wide source is the same: value / 2^31.
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
