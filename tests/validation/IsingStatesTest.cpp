#include <gtest/gtest.h>

#include <numeric>

#include "IsingStates.h"
#include "TransferMatrix.h"

namespace quorvane::validation {
namespace {

std::vector<std::int64_t> countedOneByOne(int L) {
  std::vector<std::int64_t> states(static_cast<std::size_t>(4 * L * L + 1));
  const auto sites = static_cast<unsigned>(L * L);
  for (unsigned spins = 0; spins < 1u << sites; ++spins) {
    const auto spin = [=](int i, int j) { return spins >> ((i + L) % L * L + (j + L) % L) & 1u; };
    std::size_t unlike = 0;
    for (int i = 0; i < L; ++i)
      for (int j = 0; j < L; ++j)
        unlike += (spin(i, j) ^ spin(i + 1, j)) + (spin(i, j) ^ spin(i, j + 1)) +
                  (spin(i, j) ^ spin(i + 1, j + 1)) + (spin(i, j) ^ spin(i + 1, j - 1));
    ++states[unlike];
  }
  return states;
}

TEST(IsingStates, AreThoseCountedOneByOne) {
  EXPECT_EQ(isingStates(3), countedOneByOne(3));
  EXPECT_EQ(isingStates(4), countedOneByOne(4));
}

TEST(IsingStates, AreAllStates) {
  const auto states = isingStates(6);
  EXPECT_EQ(std::accumulate(states.begin(), states.end(), std::int64_t{0}), std::int64_t{1} << 36);
  EXPECT_EQ(states[0], 2);
  // A single unlike spin has eight unlike pairs, and nothing else has so few.
  EXPECT_EQ(states[8], 2 * 36);
}

TEST(IsingStates, HaveTheMeanEnergyOfTheTransferMatrix) {
  constexpr int L = 6, sites = L * L;
  for (const double K : {0.1, 0.19, 0.3})
    EXPECT_NEAR(energyMoments(isingStates(L), K).mean, K * sites * (4 - exactIsingBonds(L, K)), 1e-7) << K;
}

TEST(IsingStates, HaveAVarianceThatIsTheSlopeOfTheMean) {
  const auto states = isingStates(4);
  constexpr double K = 0.19, step = 1e-5;
  const auto unlike = [&](double at) { return energyMoments(states, at).mean / (2 * at); };
  const double slope = (unlike(K + step) - unlike(K - step)) / (2 * step);
  EXPECT_NEAR(energyMoments(states, K).variance, -2 * K * K * slope, 1e-6);
}

}  // namespace
}  // namespace quorvane::validation
