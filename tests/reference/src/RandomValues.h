#pragma once

#include <cstdint>
#include <random>
#include <span>

namespace quorvane::reference {

/// Random values to build systems from: for a seed the same on every machine, and independent of the random
/// sources under test.
class RandomValues {
 public:
  explicit RandomValues(std::uint64_t seed) : bits_(seed) {}

  /// 0 to n - 1.
  int below(int n) { return static_cast<int>(bits_() % static_cast<std::uint64_t>(n)); }
  /// first to last, inclusive.
  int from(int first, int last) { return first + below(last - first + 1); }
  /// True with probability 1/n.
  bool oneIn(int n) { return below(n) == 0; }
  double between(double low, double high) {
    return low + (high - low) * (static_cast<double>(bits_() >> 11) * 0x1p-53);
  }
  template <class T, std::size_t N>
  T oneOf(const T (&values)[N]) {
    return values[below(static_cast<int>(N))];
  }

 private:
  std::mt19937_64 bits_;
};

}  // namespace quorvane::reference
