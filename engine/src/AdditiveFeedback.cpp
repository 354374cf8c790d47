#include "engine/AdditiveFeedback.h"

namespace quorvane {

void AdditiveFeedback::seed(std::int32_t seed) {
  // The first 31 words come from the minimal standard generator 16807 * x modulo 2^31 - 1 (Park and Miller,
  // Comm. ACM 31, 1192, 1988).
  constexpr std::int64_t modulus = 2147483647;
  std::int64_t word = seed;
  std::uint32_t first[kLag];
  for (auto& value : first) {
    value = static_cast<std::uint32_t>(word);
    word = word * 16807 % modulus;
  }
  // The C library starts its feedback at the fourth word: the first three are read again after the last.
  for (std::ptrdiff_t i = 0; i < kLag; ++i) words_[i] = first[(i + 3) % kLag];
  leftBehind_ = taken();
  end_ = kLag;
  constexpr int discarded = 310;
  for (int i = 0; i < discarded; ++i) next();
}

std::uint32_t AdditiveFeedback::next() {
  Reader reader(*this);
  reader.makeRoom();
  return reader.nextTimesTwo() >> 1;
}

AdditiveFeedback::Words AdditiveFeedback::lastWords() const {
  Words words;
  const std::ptrdiff_t first = std::ptrdiff_t{end_} - kLag;
  for (std::size_t i = 0; i < words.size(); ++i) words[i] = words_[first + static_cast<std::ptrdiff_t>(i)];
  return words;
}

void AdditiveFeedback::goOnFrom(const Words& words) {
  for (std::size_t i = 0; i < words.size(); ++i) words_[i] = words[i];
  leftBehind_ = taken();
  end_ = kLag;
}

std::ptrdiff_t AdditiveFeedback::rewind(std::ptrdiff_t end) {
  for (std::ptrdiff_t i = 0; i < kLag; ++i) words_[i] = words_[end - kLag + i].load();
  leftBehind_ = leftBehind_ + (end - kLag);
  return kLag;
}

}  // namespace quorvane
