#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "Acceptance.h"

namespace quorvane {
namespace {

using Limits = std::numeric_limits<double>;

constexpr double kDraw = 1.0 / 2147483648.0;

std::vector<double> energyDifferences() {
  std::vector<double> all = {
      0.0,
      -0.0,
      Limits::denorm_min(),
      -Limits::denorm_min(),
      2.302587,  // just above ln 10, with which five times the smallest number is just below the edge of 0
      1e-17,
      -1e-17,
      699.999,
      -699.999,
      700.0,
      -700.0,
      708.5,
      745.2,
      -745.2,
      1e4,
      -1e4,
      Limits::max(),
      -Limits::max(),
      Limits::infinity(),
      -Limits::infinity(),
      Limits::quiet_NaN()};
  for (double dE = 0.003; dE < 750.0; dE *= 1.21) {
    all.push_back(dE);
    all.push_back(-dE);
  }
  return all;
}

std::vector<double> parameters() {
  return {1.0,
          0.5,
          0.999999,
          1e-3,
          2e-9,
          1e-12,
          1e-300,
          0.0,
          -0.0,
          -0.3,
          5.0,
          1e20,
          Limits::denorm_min(),
          5 * Limits::denorm_min(),
          1e308,
          Limits::infinity(),
          -Limits::infinity(),
          Limits::quiet_NaN()};
}

/// Draws everywhere, and those on both sides of where the answer changes.
std::vector<double> drawsFor(double dE, double parameter) {
  std::vector<double> all = {0.0, kDraw, 0.25, 0.5, 0.75, 1.0 - kDraw};
  const double edge = parameter * acceptance(dE);
  if (!(edge > 0.0 && edge < 1.0)) return all;
  const double nearest = std::floor(edge / kDraw);
  for (const double steps : {-1e5, -1e3, -3.0, -1.0, 0.0, 1.0, 3.0, 1e3, 1e5}) {
    const double u = (nearest + steps) * kDraw;
    if (u >= 0.0 && u < 1.0) all.push_back(u);
  }
  return all;
}

template <class Test>
void expectTheExactResults(Test&& test) {
  for (const double dE : energyDifferences())
    for (const double parameter : parameters())
      for (const double u : drawsFor(dE, parameter))
        ASSERT_EQ(test.accepts(dE, parameter, u), ExactAcceptance::accepts(dE, parameter, u))
            << "dE " << dE << ", parameter " << parameter << ", draw " << u;
}

TEST(Acceptance, ExactComparesTheProductWithTheDraw) {
  EXPECT_TRUE(ExactAcceptance::accepts(0.0, 1.0, 1.0 - kDraw));
  EXPECT_TRUE(ExactAcceptance::accepts(-3.0, 1.0, 1.0 - kDraw));
  EXPECT_FALSE(ExactAcceptance::accepts(-3.0, 0.5, 0.5));
  EXPECT_TRUE(ExactAcceptance::accepts(1.0, 1.0, 0.3678));
  EXPECT_FALSE(ExactAcceptance::accepts(1.0, 1.0, 0.3679));
  EXPECT_TRUE(ExactAcceptance::accepts(Limits::quiet_NaN(), 1.0, 1.0 - kDraw));
  EXPECT_FALSE(ExactAcceptance::accepts(0.0, Limits::quiet_NaN(), 0.0));
  EXPECT_FALSE(ExactAcceptance::accepts(800.0, 1.0, 0.0));
}

TEST(Acceptance, BoundedGivesTheExactResults) { expectTheExactResults(BoundedAcceptance()); }

TEST(Acceptance, CachedGivesTheExactResultsTheFirstTimeAndAgain) {
  CachedAcceptance cached;
  expectTheExactResults(cached);
  expectTheExactResults(cached);  // Now without misses.
}

TEST(Acceptance, CachedCountsItsMisses) {
  CachedAcceptance cached;
  EXPECT_TRUE(cached.accepts(0.0, 1.0, 0.5));
  EXPECT_EQ(cached.takeMisses(), 0);  // A difference of 0 is in the cache from the start.
  EXPECT_FALSE(cached.accepts(1.0, 1.0, 0.5));
  EXPECT_FALSE(cached.accepts(1.0, 1.0, 0.4));
  EXPECT_EQ(cached.takeMisses(), 1);
  EXPECT_TRUE(cached.accepts(1.0, 1.0, 0.3));
  EXPECT_EQ(cached.takeMisses(), 0);
}

TEST(Acceptance, TheApproximateExponentialKeepsItsErrorBound) {
  double largest = 0.0;
  for (double dE = -700.0; dE <= 700.0; dE += 0.000977)
    largest = std::max(largest, std::abs(BoundedAcceptance::approximateExp(dE) / std::exp(-dE) - 1.0));
  EXPECT_LE(largest, BoundedAcceptance::kSeriesError);
  static_assert(BoundedAcceptance::kSeriesError <= BoundedAcceptance::kTolerance / 2);
}

}  // namespace
}  // namespace quorvane
