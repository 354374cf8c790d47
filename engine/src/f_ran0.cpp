#include "engine/f_ran0.h"

namespace quorvane {

constinit RandomSource processRandomSource;

void AdditiveFeedback::seed(std::int32_t seed) {
  // The first 31 values come from the minimal standard generator 16807 * x modulo 2^31 - 1.
  constexpr std::int64_t modulus = 2147483647;
  std::int64_t word = seed;
  ring_[0] = static_cast<std::uint32_t>(word);
  for (std::uint32_t i = 1; i < 31; ++i) {
    word = word * 16807 % modulus;
    ring_[i] = static_cast<std::uint32_t>(word);
  }
  // The C library starts its feedback at the fourth word, which is the recurrence with the first three words
  // standing once more behind the last. Words 31, 32 and 33 share the ring with 31, 0 and 1, in this order.
  const std::uint32_t again[] = {ring_[0], ring_[1], ring_[2]};
  for (std::uint32_t i = 0; i < 3; ++i) ring_[(31 + i) % kRing] = again[i];
  cursor_ = 34;
  constexpr int discarded = 310;
  for (int i = 0; i < discarded; ++i) next();
}

void RandomSource::initialise() {
  own_ = platformIsKnown();
  platform_.srand(static_cast<unsigned>(seed.load()));
  generator_.seed(seed);
  seed = 1;
  for (std::uint32_t k = 1; k <= kSlots; ++k) draw();
  for (std::uint32_t k = 1; k <= kSlots; ++k) v[k] = withSlot(draw());
  y = withSlot(draw());
  iff = 1;
}

bool RandomSource::platformIsKnown() {
  // More than enough for every word of the state to have gone through the feedback many times.
  constexpr int compared = 2000;
  platform_.srand(static_cast<unsigned>(seed.load()));
  generator_.seed(seed);
  bool same = true;
  for (int k = 0; k < compared; ++k)
    if (generator_.next() != static_cast<std::uint32_t>(platform_.rand())) same = false;
  return same;
}

}  // namespace quorvane
