#pragma once

#include <bit>
#include <cmath>
#include <concepts>
#include <cstdint>

/// Ways to evaluate the acceptance test parameter * min(1, exp(-dE)) > u, all with the same result for every
/// argument. The minimum is 1 for a dE that is not a number.
namespace quorvane {

template <class T>
concept AcceptanceTest = requires(T test, double dE, double parameter, double u) {
  { test.accepts(dE, parameter, u) } -> std::same_as<bool>;
};

/// min(1, exp(-dE)). The comparison is false for a dE that is not a number.
inline double acceptance(double dE) { return dE > 0.0 ? std::exp(-dE) : 1.0; }

/// Evaluates the exponential of the C library every time.
struct ExactAcceptance {
  static bool accepts(double dE, double parameter, double u) { return parameter * acceptance(dE) > u; }
};

/// Compares u with an approximate exponential of bounded error, and with the exact one only where the error
/// could change the result. Has no unpredictable branch.
struct BoundedAcceptance {
  /// The largest relative error of approximateExp: the first neglected term of its series, (ln 2 / 2)^5 / 5!,
  /// relative to 2^(-1/2).
  static constexpr double kSeriesError = 5.9e-5;
  /// Includes a wide margin for the rounding of the products.
  static constexpr double kTolerance = 3 * kSeriesError;

  static bool accepts(double dE, double parameter, double u) {
    const double probability = parameter * approximateExp(dE);
    // The constant part covers products that are rounded as subnormal numbers.
    const double margin = kTolerance * parameter + 1e-12;
    const bool certain = std::abs(dE) < 700.0 && std::abs(probability - u) > margin;
    if (!certain) [[unlikely]]
      return exactly(dE, parameter, u);
    // For dE < 0 the true probability is capped at the parameter.
    return (probability > u) & (parameter > u);
  }

  /// exp(-dE) for a dE between -700 and 700: a power of two times the series of the remainder.
  static double approximateExp(double dE) {
    constexpr double minusLog2OfE = -1.4426950408889634;
    // Adding 1.5 * 2^52 rounds to an integer, whose bits are then the lowest bits of the sum.
    constexpr double rounder = 6755399441055744.0;
    const double exponent = dE * minusLog2OfE;
    const double rounded = exponent + rounder;
    const double remainder = exponent - (rounded - rounder);
    const auto power = std::bit_cast<double>((std::bit_cast<std::uint64_t>(rounded) + 1023) << 52);
    // 2^x = 1 + c1 x + c2 x^2 + ... with ck = (ln 2)^k / k!, in pairs that can be computed in parallel.
    constexpr double c1 = 0.6931471805599453, c2 = 0.24022650695910072, c3 = 0.05550410866482158,
                     c4 = 0.009618129107628477;
    const double square = remainder * remainder;
    return power * ((1.0 + c1 * remainder) + square * ((c2 + c3 * remainder) + c4 * square));
  }

 private:
  /// Not inlined, since fewer than one in a thousand attempts call it.
  static bool exactly(double dE, double parameter, double u);
};

/// Caches the minimum by the bits of dE. Fastest if few different dE occur, as with two types.
class CachedAcceptance {
 public:
  bool accepts(double dE, double parameter, double u) {
    const auto bits = std::bit_cast<std::uint64_t>(dE);
    const Entry& entry = entries_[indexOf(bits)];
    const double q = entry.dE == bits ? entry.acceptance : compute(dE);
    return parameter * q > u;
  }

  /// The misses since the last call: values of dE that were new or had been evicted.
  int takeMisses() {
    const int misses = misses_;
    misses_ = 0;
    return misses;
  }

 private:
  struct Entry {
    std::uint64_t dE = 0;  ///< its bits; those of 0 at the start
    double acceptance = 1.0;
  };

  static constexpr int kIndexBits = 8;
  /// Multiplicative hashing: 2^64 divided by the golden ratio moves the influence of every bit to the top.
  static std::uint64_t indexOf(std::uint64_t bits) { return bits * 0x9E3779B97F4A7C15 >> (64 - kIndexBits); }

  double compute(double dE);

  Entry entries_[1 << kIndexBits];
  int misses_ = 0;
};

}  // namespace quorvane
