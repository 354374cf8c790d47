#pragma once

#include <cstdint>
#include <cstdlib>

#include "engine/Relaxed.h"

namespace quorvane {

/// The additive feedback generator that glibc's `rand` is: r[i] = r[i-3] + r[i-31] modulo 2^32, of which the
/// upper 31 bits are the result. Its state is its own, so nothing else in the process can disturb it.
class AdditiveFeedback {
 public:
  /// Starts the sequence that `srand(seed)` starts. seed: 1 to 2^31 - 1.
  void seed(std::int32_t seed);

  /// The next value, 0 to 2^31 - 1.
  std::uint32_t next() {
    // 32 slots hold the last 31 values, so that the wrap is a mask and no index can leave the ring.
    const std::uint32_t i = cursor_;
    const std::uint32_t value = ring_[(i - 3) % kRing] + ring_[(i - 31) % kRing];
    ring_[i % kRing] = value;
    cursor_ = i + 1;
    return value >> 1;
  }

 private:
  static constexpr std::uint32_t kRing = 32;
  Relaxed<std::uint32_t> ring_[kRing];
  Relaxed<std::uint32_t> cursor_;
};

/// The C library's generator; replaced only by tests.
struct PlatformRand {
  void (*srand)(unsigned) = &std::srand;
  int (*rand)() = &std::rand;
};

/// A shuffle table of 97 slots in front of the C library's generator (Bays and Durham, ACM Trans. Math.
/// Software 2, 59, 1976; `ran0` of Press et al., Numerical Recipes, 1986), seeded with 10 at the first draw.
///
/// Yields bit for bit what `srand(10)` and `rand()` would yield through the table. Where the C library's
/// generator is glibc's, the values come from `AdditiveFeedback`, because other code in the process (a
/// graphics driver, say) may call `srand` and `rand` too; the first draw checks this, and where the generator
/// is another, draws come from `rand` itself.
class RandomSource {
 public:
  static constexpr double maxran = 2147483648.0;

  constexpr RandomSource() = default;
  explicit constexpr RandomSource(PlatformRand platform) : platform_(platform) {}

  /// The next value, 0 to 2^31 - 1 (less where RAND_MAX is less). Seeds the source when it is the first.
  std::uint32_t next() {
    if (iff == 0) [[unlikely]]
      initialise();
    const std::uint32_t k = slotOf(y);
    const Entry drawn = v[k];
    v[k] = withSlot(draw());
    y = drawn;
    return valueOf(drawn);
  }

  /// The slot that the last value y selects, 1 to 97: truncation of 1.0 + 97.0 * y / maxran. The product has
  /// at most 38 bits and the division is by a power of two, so whole numbers give exactly that.
  static constexpr std::uint32_t slot(std::uint32_t y) {
    return 1 + static_cast<std::uint32_t>((std::uint64_t{kSlots} * y) >> 31);
  }

  /// True once the first draw has found the platform's generator to be the one computed here.
  bool drawsItself() const { return own_; }

 private:
  static constexpr std::uint32_t kSlots = 97;

  /// A value with the slot that it selects in the upper half. Each draw waits for the slot of the one before
  /// it, so the slot is found when the value enters the table and nothing waits for it.
  using Entry = std::uint64_t;
  static constexpr Entry withSlot(std::uint32_t value) { return Entry{slot(value)} << 32 | value; }
  static constexpr std::uint32_t slotOf(Entry entry) { return static_cast<std::uint32_t>(entry >> 32); }
  static constexpr std::uint32_t valueOf(Entry entry) { return static_cast<std::uint32_t>(entry); }

  std::uint32_t draw() { return own_ ? generator_.next() : static_cast<std::uint32_t>(platform_.rand()); }
  void initialise();
  bool platformIsKnown();

  PlatformRand platform_;
  AdditiveFeedback generator_;
  Relaxed<bool> own_;
  Relaxed<int> seed = 10;
  Relaxed<int> iff;
  /// Slots 1 to 97; slot 0 is not used.
  Relaxed<Entry> v[kSlots + 1];
  Relaxed<Entry> y;
};

}  // namespace quorvane
