#pragma once

#include <cstdint>

namespace quorvane {

/// The generator of a platform other than the C library's, with values up to 2^bits - 1 and a separate state
/// for each user.
template <int bits, int user = 0>
struct OtherPlatform {
  static inline std::uint64_t state = 0;
  static inline int seedings = 0;
  static inline unsigned lastSeed = 0;
  static void srand(unsigned seed) {
    state = seed;
    lastSeed = seed;
    ++seedings;
  }
  static int rand() {
    state = state * 6364136223846793005u + 1442695040888963407u;
    return static_cast<int>(state >> (64 - bits));
  }
};

}  // namespace quorvane
