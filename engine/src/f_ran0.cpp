#include "engine/f_ran0.h"

namespace quorvane {

constinit RandomSource processRandomSource;

void AdditiveFeedback::seed(std::int32_t seed) {
  // The first 31 words come from the minimal standard generator 16807 * x modulo 2^31 - 1.
  constexpr std::int64_t modulus = 2147483647;
  std::int64_t word = seed;
  std::uint32_t first[kLag];
  for (auto& value : first) {
    value = static_cast<std::uint32_t>(word);
    word = word * 16807 % modulus;
  }
  // The C library starts its feedback at the fourth word, which is the recurrence with the first three words
  // standing once more behind the last.
  for (std::ptrdiff_t i = 0; i < kLag; ++i) words_[i] = first[(i + 3) % kLag];
  end_ = kLag;
  constexpr int discarded = 310;
  for (int i = 0; i < discarded; ++i) next();
}

std::ptrdiff_t AdditiveFeedback::rewind(std::ptrdiff_t end) {
  for (std::ptrdiff_t i = 0; i < kLag; ++i) words_[i] = words_[end - kLag + i].load();
  return kLag;
}

void RandomSource::lookAtPlatform() {
  if (looked_) return;
  own_ = yieldsAdditiveFeedback(platform_, seed);
  looked_ = true;
}

void RandomSource::initialise() {
  lookAtPlatform();
  if (own_)
    generator_.seed(seed);
  else
    platform_.srand(static_cast<unsigned>(seed.load()));
  seed = 1;
  for (std::uint32_t k = 1; k <= kSlots; ++k) draw();
  for (std::uint32_t k = 1; k <= kSlots; ++k) v[k] = entryOf(2 * draw());
  y = entryOf(2 * draw());
  iff = 1;
}

std::uint32_t RandomSource::take(Entry fresh) {
  auto& place = v[slotOf(y)];
  y = place;
  place = fresh;
  return twiceOf(y) >> 1;
}

}  // namespace quorvane
