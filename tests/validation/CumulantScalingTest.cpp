#include <gtest/gtest.h>

#include <cmath>

#include "CumulantScaling.h"
#include "TransferMatrix.h"

namespace quorvane::validation {
namespace {

constexpr double kCritical = 0.1901926807;

TEST(CumulantScaling, ReproducesTheExactCumulantsThatItIsFittedTo) {
  const CumulantScaling scaling(kCritical);
  for (const int L : {6, 7, 8})
    EXPECT_NEAR(scaling.cumulant(L), exactIsingMoments(L, kCritical).cumulant(), 1e-12) << L;
}

TEST(CumulantScaling, PredictsTheNextSize) {
  constexpr double step = 1e-5;
  const CumulantScaling scaling(kCritical);
  const double below = exactIsingMoments(9, kCritical - step).cumulant();
  const double above = exactIsingMoments(9, kCritical + step).cumulant();
  // One hundredth of the smallest error of a cumulant measured here.
  EXPECT_NEAR(scaling.cumulant(9), (below + above) / 2, 1e-6);
  EXPECT_NEAR(scaling.slope(9), (above - below) / (2 * step), 2e-4);
}

TEST(CumulantScaling, TendsToTheUniversalValue) {
  EXPECT_NEAR(CumulantScaling(kCritical).cumulant(1e6), 0.610690, 1e-6);
}

TEST(CumulantScaling, CrossesWhereTheExactCumulantsDo) {
  // Far below the smallest error of a crossing measured here.
  EXPECT_NEAR(CumulantScaling(kCritical).crossing(7, 8), exactCumulantCrossing(7, 8), 5e-6);
  EXPECT_NEAR(CumulantScaling(kCritical).crossing(6, 8), exactCumulantCrossing(6, 8), 5e-6);
}

}  // namespace
}  // namespace quorvane::validation
