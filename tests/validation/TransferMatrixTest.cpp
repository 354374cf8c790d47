#include <gtest/gtest.h>

#include <cmath>

#include "TransferMatrix.h"

namespace quorvane::validation {
namespace {

struct Enumerated {
  double m2, m4, bonds;
};

/// The same from the sum over all configurations.
Enumerated enumerated(int L, double K) {
  double Z = 0.0, m2 = 0.0, m4 = 0.0, bondSum = 0.0;
  const auto sites = static_cast<unsigned>(L * L);
  for (unsigned spins = 0; spins < 1u << sites; ++spins) {
    const auto spin = [=](int i, int j) {
      return 2 * static_cast<int>(spins >> ((i + L) % L * L + (j + L) % L) & 1) - 1;
    };
    int bonds = 0, sum = 0;
    for (int i = 0; i < L; ++i)
      for (int j = 0; j < L; ++j) {
        bonds += spin(i, j) * (spin(i + 1, j) + spin(i, j + 1) + spin(i + 1, j + 1) + spin(i + 1, j - 1));
        sum += spin(i, j);
      }
    const double weight = std::exp(K * bonds);
    const double m = static_cast<double>(sum) / sites;
    Z += weight;
    m2 += weight * m * m;
    m4 += weight * m * m * m * m;
    bondSum += weight * bonds / sites;
  }
  return {m2 / Z, m4 / Z, bondSum / Z};
}

TEST(TransferMatrix, GivesTheMomentsOfAllConfigurations) {
  for (const int L : {3, 4})
    for (const double K : {0.0, 0.1, 0.19, 0.3}) {
      const Enumerated expected = enumerated(L, K);
      EXPECT_NEAR(exactIsingMoments(L, K).m2, expected.m2, 1e-12) << L << ", " << K;
      EXPECT_NEAR(exactIsingMoments(L, K).m4, expected.m4, 1e-12) << L << ", " << K;
      EXPECT_NEAR(exactIsingBonds(L, K), expected.bonds, 1e-9) << L << ", " << K;
    }
}

TEST(TransferMatrix, WithoutCouplingGivesFreeSpins) {
  const double n = 36;
  EXPECT_NEAR(exactIsingMoments(6, 0.0).m2, 1 / n, 1e-12);
  EXPECT_NEAR(exactIsingMoments(6, 0.0).m4, (3 * n - 2) / (n * n * n), 1e-12);
}

}  // namespace
}  // namespace quorvane::validation
