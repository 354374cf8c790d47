#pragma once

#include <cmath>
#include <cstdint>

#include "engine/RandomSource.h"

/// The process-wide random number source. Every draw of the system uses it, so results are reproducible as
/// long as every caller draws in its documented order.
///
/// The source is seeded with a fixed value at the first draw of the process and never again, unless
/// RandomSource::startAnew is called: two fresh processes draw the same sequence, which with glibc begins
/// 0.32136549381539226, 0.84746248042210937, 0.35341121396049857. Two threads that draw at once may disturb
/// each other's order; every draw stays in its range.
namespace quorvane {

extern constinit RandomSource processRandomSource;

/// The next draw, uniform in [0, 1): a multiple of 2^-31.
inline double fn_ran0() { return processRandomSource.next() / RandomSource::maxran; }

/// The next draw, uniform in [0, 1). One draw.
inline double fRandReal() { return fn_ran0(); }

/// A whole number uniform in 1 to n: floor(fRandReal() * n) + 1. One draw, also for n = 1. Gives 1 for n = 0.
inline int fRandInt(int n) {
  // A 31-bit value times n is exact in a double as long as n has at most 22 bits, so whole numbers give the
  // same floor without a conversion to and fro.
  constexpr int exactBelow = 1 << 22;
  if (n >= 0 && n < exactBelow) {
    const auto product = std::uint64_t{processRandomSource.next()} * static_cast<std::uint64_t>(n);
    return static_cast<int>(product >> 31) + 1;
  }
  return static_cast<int>(std::floor(fRandReal() * n) + 1.0);
}

}  // namespace quorvane
