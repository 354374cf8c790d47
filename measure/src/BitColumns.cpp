#include "BitColumns.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr std::size_t kWordBits = 64;

/// The number of bits set in each byte of a word. Not std::popcount, which calls a function on processors
/// that the compiler does not know to have an instruction for it; this one is compiled to vectors.
std::uint64_t bitsPerByte(std::uint64_t word) {
  constexpr std::uint64_t pairs = 0x5555555555555555, nibbles = 0x3333333333333333,
                          bytes = 0x0f0f0f0f0f0f0f0f;
  word -= word >> 1 & pairs;
  word = (word & nibbles) + (word >> 2 & nibbles);
  return (word + (word >> 4)) & bytes;
}

std::uint64_t sumOfBytes(std::uint64_t word) {
  constexpr std::uint64_t evenBytes = 0x00ff00ff00ff00ff, ones = 0x0001000100010001;
  return ((word & evenBytes) + (word >> 8 & evenBytes)) * ones >> 48;
}

/// The number of bits set in both of two arrays.
std::int64_t bitsInBoth(const std::uint64_t* a, const std::uint64_t* b, std::size_t numWords) {
  // A byte holds the sum of so many words, of at most eight bits each.
  constexpr std::size_t block = 30;
  std::uint64_t sum = 0;
  while (numWords > 0) {
    const std::size_t length = std::min(block, numWords);
    std::uint64_t perByte = 0;
    for (std::size_t k = 0; k < length; ++k) perByte += bitsPerByte(a[k] & b[k]);
    sum += sumOfBytes(perByte);
    a += length;
    b += length;
    numWords -= length;
  }
  return static_cast<std::int64_t>(sum);
}

/// A bit for each of at most 64 sites.
std::uint64_t wordOf(const std::uint8_t* sites, std::size_t count, int type) {
  std::uint64_t word = 0;
  for (std::size_t k = 0; k < count; ++k) word |= std::uint64_t{sites[k] == type} << k;
  return word;
}

/// Sets a bit of the words whose sites hold the type.
void setBits(const std::uint8_t* sites, std::size_t count, int type, std::size_t bit, std::uint64_t* words) {
  for (std::size_t k = 0; k < count; ++k) words[k] |= std::uint64_t{sites[k] == type} << bit;
}

}  // namespace

void BitColumns::read(const Snapshot& snapshot, int type, Axis axis) {
  const auto imax = static_cast<std::size_t>(snapshot.imax), jmax = static_cast<std::size_t>(snapshot.jmax);
  steps_ = axis == Axis::kI ? imax : jmax;
  words_ = ((axis == Axis::kI ? jmax : imax) + kWordBits - 1) / kWordBits;
  bits_.assign(steps_ * words_, 0);
  const std::uint8_t* site = snapshot.sites.data();
  for (std::size_t i = 0; i < imax; ++i, site += jmax)
    if (axis == Axis::kI)
      for (std::size_t w = 0; w < words_; ++w)
        bits_[w * steps_ + i] = wordOf(site + w * kWordBits, std::min(kWordBits, jmax - w * kWordBits), type);
    else
      setBits(site, jmax, type, i % kWordBits, &bits_[i / kWordBits * steps_]);
}

std::int64_t BitColumns::pairsAt(int r) const {
  const auto shift = static_cast<std::size_t>(r), rest = steps_ - shift;
  std::int64_t pairs = 0;
  for (std::size_t w = 0; w < words_; ++w) {
    const std::uint64_t* bits = bits_.data() + w * steps_;
    pairs += bitsInBoth(bits, bits + shift, rest) + bitsInBoth(bits + rest, bits, shift);
  }
  return pairs;
}

}  // namespace quorvane
