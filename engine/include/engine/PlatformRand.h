#pragma once

#include <cstdint>
#include <cstdlib>

namespace quorvane {

/// The C library's generator; replaced only by tests.
struct PlatformRand {
  void (*srand)(unsigned) = &std::srand;
  int (*rand)() = &std::rand;
};

/// True if `srand(seed)` and `rand` of the platform yield what `AdditiveFeedback` yields for the seed, over
/// 2000 values. seed: 1 to 2^31 - 1.
///
/// The platform's generator is shared by the whole process. The comparison tolerates other threads that draw
/// from it continuously and seed it occasionally. Takes some microseconds; on any platform less than a few
/// seconds.
bool yieldsAdditiveFeedback(const PlatformRand& platform, std::int32_t seed);

}  // namespace quorvane
