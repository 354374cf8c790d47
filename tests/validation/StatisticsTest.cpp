#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "Statistics.h"

namespace quorvane::validation {
namespace {

/// A Gaussian sequence x' = a x + noise of variance 1, with mean 0 and correlation a^k at lag k.
class CorrelatedNoise {
 public:
  explicit CorrelatedNoise(double a) : a_(a) {}
  double next() { return x_ = a_ * x_ + std::sqrt(1 - a_ * a_) * noise_(source_); }

 private:
  double a_;
  double x_ = 0.0;
  std::mt19937_64 source_{7};
  std::normal_distribution<double> noise_;
};

TEST(Blocks, GiveTheMeanOfAllSamples) {
  Blocks blocks(2, 2);
  for (const double x : {1.0, 2.0, 3.0, 6.0}) blocks.sample({x, -x});
  EXPECT_EQ(blocks.numBlocks(), 2);
  EXPECT_DOUBLE_EQ(blocks.mean(0).value, 3.0);
  EXPECT_DOUBLE_EQ(blocks.mean(1).value, -3.0);
}

TEST(Blocks, GiveTheErrorOfTheBlockMeans) {
  Blocks blocks(1, 2);
  for (const double x : {1.0, 2.0, 3.0, 6.0}) blocks.sample({x});
  // Block means 1.5 and 4.5.
  EXPECT_DOUBLE_EQ(blocks.mean(0).error, 1.5);
}

TEST(Blocks, IgnoreAnUnfinishedBlock) {
  Blocks blocks(1, 3);
  for (const double x : {1.0, 1.0, 1.0, 100.0, 100.0}) blocks.sample({x});
  EXPECT_EQ(blocks.numBlocks(), 1);
}

TEST(Blocks, OfIndependentSamplesHaveTheErrorOfIndependentSamples) {
  CorrelatedNoise noise(0.0);
  Blocks blocks(1, 50);
  for (int k = 0; k < 50'000; ++k) blocks.sample({noise.next()});
  const double exact = 1 / std::sqrt(50'000.0);
  // The error of a thousand blocks has itself the relative error 1 / sqrt(2000).
  EXPECT_NEAR(blocks.mean(0).error, exact, 5 * exact / std::sqrt(2000.0));
}

TEST(Blocks, IncludeCorrelationsInTime) {
  constexpr double a = 0.9;
  CorrelatedNoise noise(a);
  Blocks blocks(1, 1000), tooShort(1, 1);
  for (int k = 0; k < 1'000'000; ++k) {
    const double x = noise.next();
    blocks.sample({x});
    tooShort.sample({x});
  }
  // Correlations increase the variance of the mean by 1 + 2 (a + a^2 + ...); the ends of a block of n samples
  // reduce this by 2 a / (1 - a^2) / n.
  const double exact = std::sqrt((1 + a) / (1 - a) * (1 - 2 * a / (1 - a * a) / 1000) / 1e6);
  EXPECT_NEAR(blocks.mean(0).error, exact, 5 * exact / std::sqrt(2000.0));
  EXPECT_LT(tooShort.mean(0).error, exact / 4);
  EXPECT_LT(std::abs(deviation(blocks.mean(0), 0.0)), 5.0);
}

TEST(Blocks, ShowWhetherTheyAreLongEnough) {
  CorrelatedNoise noise(0.9);
  Blocks longEnough(1, 1000), tooShort(1, 5);
  for (int k = 0; k < 1'000'000; ++k) {
    const double x = noise.next();
    longEnough.sample({x});
    tooShort.sample({x});
  }
  EXPECT_LT(longEnough.correlationOfNeighbours(0), 5 / std::sqrt(longEnough.numBlocks()));
  EXPECT_GT(tooShort.correlationOfNeighbours(0), 5 / std::sqrt(tooShort.numBlocks()));
}

TEST(Blocks, FunctionOfOneMeanIsThatMean) {
  CorrelatedNoise noise(0.5);
  Blocks blocks(1, 10);
  for (int k = 0; k < 1000; ++k) blocks.sample({noise.next()});
  const Estimate direct = blocks.mean(0);
  const Estimate jackknife = blocks.functionOfMeans([](Blocks::Means means) { return means[0]; });
  EXPECT_NEAR(jackknife.value, direct.value, 1e-12);
  EXPECT_NEAR(jackknife.error, direct.error, 1e-12);
}

TEST(Blocks, FunctionOfMeansIsCorrectedForBias) {
  // The square of a mean of n values is too large by their variance over n on average.
  double sum = 0.0;
  CorrelatedNoise noise(0.0);
  constexpr int repetitions = 4000, n = 10;
  for (int k = 0; k < repetitions; ++k) {
    Blocks blocks(1, 1);
    for (int s = 0; s < n; ++s) blocks.sample({noise.next()});
    sum += blocks.functionOfMeans([](Blocks::Means means) { return means[0] * means[0]; }).value;
  }
  // Without the correction the mean would be 1 / n, a hundred times the tolerance.
  EXPECT_NEAR(sum / repetitions, 0.0, 5 * std::sqrt(2.0 / (n * (n - 1))) / std::sqrt(repetitions));
  EXPECT_LT(5 * std::sqrt(2.0 / (n * (n - 1))) / std::sqrt(repetitions), 1.0 / n / 5);
}

TEST(Deviation, IsCountedInStandardErrors) {
  EXPECT_DOUBLE_EQ(deviation({1.5, 0.25}, 1.0), 2.0);
  EXPECT_DOUBLE_EQ(deviation({0.5, 0.25}, 1.0), -2.0);
}

TEST(Share, HasTheErrorOfIndependentOutcomes) {
  const Estimate half = share(30, 100, 0.5);
  EXPECT_DOUBLE_EQ(half.value, 0.3);
  EXPECT_DOUBLE_EQ(half.error, 0.05);
}

std::vector<std::int64_t> throwsOfADie(int sides, int throws, double loaded) {
  std::mt19937_64 source(11);
  std::vector<double> weights(static_cast<std::size_t>(sides), 1.0);
  weights[0] += loaded;
  std::discrete_distribution<std::size_t> side(weights.begin(), weights.end());
  std::vector<std::int64_t> counts(weights.size());
  for (int k = 0; k < throws; ++k) ++counts[side(source)];
  return counts;
}

TEST(ChiSquared, AddsSquaresOverExpectedCounts) {
  ChiSquared chiSquared;
  chiSquared.add(std::vector<std::int64_t>{60, 40}, std::vector<double>{0.5, 0.5});
  EXPECT_DOUBLE_EQ(chiSquared.sum(), 4.0);
  EXPECT_EQ(chiSquared.degrees(), 1);
}

TEST(ChiSquared, MergesRareCells) {
  ChiSquared chiSquared;
  chiSquared.add(std::vector<std::int64_t>{88, 7, 5}, std::vector<double>{0.9, 0.06, 0.04});
  EXPECT_DOUBLE_EQ(chiSquared.sum(), 4.0 / 90 + 4.0 / 10);
  EXPECT_EQ(chiSquared.degrees(), 1);
}

TEST(ChiSquared, AcceptsAFairDie) {
  ChiSquared chiSquared;
  chiSquared.addUniform(throwsOfADie(6, 1'000'000, 0.0));
  EXPECT_LT(std::abs(chiSquared.normalDeviate()), 4.0);
}

TEST(ChiSquared, RejectsADieLoadedByTwoPerCent) {
  ChiSquared chiSquared;
  chiSquared.addUniform(throwsOfADie(6, 1'000'000, 0.02));
  EXPECT_GT(chiSquared.normalDeviate(), 5.0);
}

TEST(ChiSquared, HasTheTailOfANormalDeviate) {
  struct Point {
    double sum, deviate;
  };
  // Upper points of 0.05, 0.01 and 0.001 of a normal variable and of chi-squared with seven degrees of
  // freedom.
  for (const Point& point : {Point{14.067, 1.645}, Point{18.475, 2.326}, Point{24.322, 3.090}}) {
    ChiSquared chiSquared;
    // Eight cells, one with an excess, which gives the sum excess^2 / expected * (1 + 1 / 7).
    const double expected = 1e6;
    const double excess = std::sqrt(point.sum * expected * 7 / 8);
    std::vector<std::int64_t> counts(8, static_cast<std::int64_t>(expected - excess / 7));
    counts[0] = static_cast<std::int64_t>(expected + excess);
    chiSquared.addUniform(counts);
    EXPECT_NEAR(chiSquared.normalDeviate(), point.deviate, 0.03);
  }
}

}  // namespace
}  // namespace quorvane::validation
