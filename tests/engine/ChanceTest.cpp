#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "Chance.h"

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

template <class Chance>
void expectAsWritten(Chance&& chance) {
  for (const double dE : energyDifferences())
    for (const double parameter : parameters())
      for (const double u : drawsFor(dE, parameter))
        ASSERT_EQ(chance.accepts(dE, parameter, u), ExactChance::accepts(dE, parameter, u))
            << "dE " << dE << ", parameter " << parameter << ", draw " << u;
}

TEST(Chance, AsItIsWritten) {
  EXPECT_TRUE(ExactChance::accepts(0.0, 1.0, 1.0 - kDraw));
  EXPECT_TRUE(ExactChance::accepts(-3.0, 1.0, 1.0 - kDraw));
  EXPECT_FALSE(ExactChance::accepts(-3.0, 0.5, 0.5));
  EXPECT_TRUE(ExactChance::accepts(1.0, 1.0, 0.3678));
  EXPECT_FALSE(ExactChance::accepts(1.0, 1.0, 0.3679));
  EXPECT_TRUE(ExactChance::accepts(Limits::quiet_NaN(), 1.0, 1.0 - kDraw));
  EXPECT_FALSE(ExactChance::accepts(0.0, Limits::quiet_NaN(), 0.0));
  EXPECT_FALSE(ExactChance::accepts(800.0, 1.0, 0.0));
}

TEST(Chance, QuickAnswersAsTheExactOneDoes) { expectAsWritten(QuickChance()); }

TEST(Chance, RememberedAnswersAsTheExactOneDoes) {
  RememberedChance chance;
  expectAsWritten(chance);
  expectAsWritten(chance);  // Now from what it has met.
}

TEST(Chance, RememberedCountsWhatIsNew) {
  RememberedChance chance;
  EXPECT_TRUE(chance.accepts(0.0, 1.0, 0.5));
  EXPECT_EQ(chance.takeMisses(), 0);  // A difference of 0 is known from the start.
  EXPECT_FALSE(chance.accepts(1.0, 1.0, 0.5));
  EXPECT_FALSE(chance.accepts(1.0, 1.0, 0.4));
  EXPECT_EQ(chance.takeMisses(), 1);
  EXPECT_TRUE(chance.accepts(1.0, 1.0, 0.3));
  EXPECT_EQ(chance.takeMisses(), 0);
}

TEST(Chance, TheCheapExponentialIsWithinHalfItsTolerance) {
  double largest = 0.0;
  for (double dE = -700.0; dE <= 700.0; dE += 0.000977)
    largest = std::max(largest, std::abs(QuickChance::cheapExp(dE) / std::exp(-dE) - 1.0));
  EXPECT_LE(largest, QuickChance::kTolerance / 2);
}

}  // namespace
}  // namespace quorvane
