#pragma once

#include <cstdint>
#include <limits>

namespace quorvane {

/// The last count of the wait after a sweep at a speed: (10^10 / speed) xor 10. Speed 0 waits as 1 to 4 do,
/// for ever: the largest count is never exceeded.
constexpr std::int64_t waitBound(std::int32_t speed) {
  if (speed == 0) return std::numeric_limits<std::int32_t>::max();
  constexpr std::int64_t countsAtSpeedOne = 10'000'000'000;
  return (countsAtSpeedOne / speed) ^ 10;
}

/// Counts from start until the count exceeds bound(), which is called before every pass.
template <class Bound>
void countBeyond(Bound&& bound, std::int32_t start = 0) {
  // volatile keeps the compiler from removing the loop. The counter saturates instead of overflowing, so that
  // an unreachable bound keeps it waiting, and a new bound still ends the wait at the next pass.
  volatile std::int32_t count = start;
  while (count <= bound())
    if (count < std::numeric_limits<std::int32_t>::max()) count = count + 1;
}

}  // namespace quorvane
