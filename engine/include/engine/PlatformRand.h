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
/// The platform's generator is the whole process's. Another thread may draw from it all the time, and may
/// seed it now and then, without being taken for another generator. Takes some microseconds, and less than a
/// few seconds on any platform.
bool yieldsAdditiveFeedback(const PlatformRand& platform, std::int32_t seed);

}  // namespace quorvane
