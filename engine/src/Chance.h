#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

/// Ways to tell whether parameter * min(1, exp(-dE)) > u, all with the same answer for every argument. An
/// exponential that is not a number counts as 1.
namespace quorvane {

/// min(1, exp(-dE)). The comparison is false for a dE that is no number.
inline double acceptance(double dE) { return dE > 0.0 ? std::exp(-dE) : 1.0; }

/// As it is written.
struct ExactChance {
  static bool accepts(double dE, double parameter, double u) { return parameter * acceptance(dE) > u; }
};

/// Compares u with a cheap exponential, and with the exact one only where that could change the answer. Has
/// no branch that cannot be predicted.
struct QuickChance {
  /// More than twice the largest relative error of the cheap exponential.
  static constexpr double kTolerance = 2e-4;

  static bool accepts(double dE, double parameter, double u) {
    const double chance = parameter * cheapExp(dE);
    // The part that does not depend on the parameter is for products that round below the normal numbers.
    const double tooClose = kTolerance * parameter + 1e-12;
    const bool certain = std::abs(dE) < 700.0 && std::abs(chance - u) > tooClose;
    if (!certain) [[unlikely]]
      return exactly(dE, parameter, u);
    // For a dE below 0 the cheap chance is above the parameter, which is the true one.
    return (chance > u) & (parameter > u);
  }

  /// exp(-dE) for a dE between -700 and 700: a power of two times a short series for what is left.
  static double cheapExp(double dE) {
    constexpr double perPower = -1.4426950408889634;  // -1 / ln 2
    // Adding 1.5 * 2^52 rounds to a whole number, which then stands in the lowest bits.
    constexpr double rounder = 6755399441055744.0;
    const double power = dE * perPower;
    const double rounded = power + rounder;
    const double rest = power - (rounded - rounder);
    const auto scale = std::bit_cast<double>((std::bit_cast<std::uint64_t>(rounded) + 1023) << 52);
    // 2^rest = exp(rest * ln 2), in pairs that do not wait for one another.
    constexpr double c1 = 0.6931471805599453, c2 = 0.24022650695910072, c3 = 0.05550410866482158,
                     c4 = 0.009618129107628477;
    const double square = rest * rest;
    return scale * ((1.0 + c1 * rest) + square * ((c2 + c3 * rest) + c4 * square));
  }

 private:
  /// Out of line: it is called once in thousands of attempts.
  static bool exactly(double dE, double parameter, double u);
};

/// Keeps the acceptances of the energy differences that it has met. Best where few differences occur, as with
/// two types.
class RememberedChance {
 public:
  bool accepts(double dE, double parameter, double u) {
    const auto bits = std::bit_cast<std::uint64_t>(dE);
    const Met& met = met_[place(bits)];
    const double q = met.dE == bits ? met.acceptance : meet(dE);
    return parameter * q > u;
  }

  /// How many differences were new, or had been pushed out by another, since this was asked last.
  int takeMisses() {
    const int misses = misses_;
    misses_ = 0;
    return misses;
  }

 private:
  static constexpr int kBits = 8;
  /// Multiplying by the golden ratio of 2^64 brings every bit's influence to the top.
  static std::uint64_t place(std::uint64_t bits) { return bits * 0x9E3779B97F4A7C15 >> (64 - kBits); }

  double meet(double dE);

  struct Met {
    std::uint64_t dE = 0;  ///< the bits of the difference; those of 0 at the start
    double acceptance = 1.0;
  };
  Met met_[1 << kBits];
  int misses_ = 0;
};

}  // namespace quorvane
