#pragma once

#include "engine/f_ran0.h"

namespace quorvane {

/// Foretells the draws of the process's source: a copy of it that draws the same sequence from here on.
class Draws {
 public:
  double real() { return source_.next() / RandomSource::maxran; }
  int whole(int n) { return static_cast<int>(real() * n) + 1; }

  /// How many draws the process has made since this object was made or last asked. Makes one more of each to
  /// look.
  int sinceLast() {
    const double now = fRandReal();
    int draws = 0;
    // A value of 31 bits comes again by chance once in a billion draws, far beyond any test here.
    while (real() != now) ++draws;
    return draws;
  }

 private:
  RandomSource source_ = started();

  static const RandomSource& started() {
    fRandReal();
    return processRandomSource;
  }
};

}  // namespace quorvane
