#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "study/Statistics.h"
#include "study/TimeSeries.h"

namespace quorvane {
namespace {

TEST(TimeSeries, MomentsOfAFewValues) {
  const Moments moments = momentsOf({1, 2, 3, 6});
  EXPECT_DOUBLE_EQ(moments.mean, 3.0);
  EXPECT_DOUBLE_EQ(moments.square, 12.5);
  EXPECT_DOUBLE_EQ(moments.fourth, (1 + 16 + 81 + 1296) / 4.0);
}

TEST(TimeSeries, TauOfAConstantOrAnInfiniteColumnIsUndefined) {
  EXPECT_TRUE(std::isnan(momentsOf({2, 2, 2}).tau));
  EXPECT_TRUE(std::isnan(momentsOf({5}).tau));
  EXPECT_TRUE(std::isnan(momentsOf({1, INFINITY, 2}).tau));
  EXPECT_TRUE(std::isnan(momentsOf({}).mean));
}

TEST(TimeSeries, AConstantWithoutAnExactMeanIsConstant) {
  // The sum of a thousand tenths is not a hundred.
  EXPECT_TRUE(std::isnan(momentsOf(std::vector<double>(1000, 0.1)).tau));
}

TEST(TimeSeries, TauOfATrendIsUndefinedAndTakesBoundedTime) {
  std::vector<double> trend;
  for (int k = 0; k < 100'000; ++k) trend.push_back(k);
  EXPECT_TRUE(std::isnan(momentsOf(trend).tau));
}

/// A first-order autoregressive sequence has rho(t) = phi^t, so tau = (1 + phi) / (2 (1 - phi)).
TEST(TimeSeries, TauOfAnAutoregressiveSequence) {
  std::mt19937_64 source(5);
  std::normal_distribution<double> normal;
  for (const double phi : {0.0, 0.5, 0.9}) {
    std::vector<double> values;
    double value = 0.0;
    for (int k = 0; k < 400'000; ++k) values.push_back(value = phi * value + normal(source));
    const double exact = (1.0 + phi) / (2.0 * (1.0 - phi));
    EXPECT_NEAR(momentsOf(values).tau, exact, 0.04 * exact) << phi;
  }
}

Moments ofMean(double mean) { return {mean, mean * mean + 1.0, mean * mean * mean * mean + 2.0, 1.0}; }

TEST(Jackknife, OfTheMeanIsTheUsualStandardError) {
  const std::vector<double> means{1.0, 4.0, 2.5, 7.0, -3.0};
  ReplicaSums sums;
  for (const double mean : means) sums.add(ofMean(mean));
  Jackknife jackknife(average, sums, 1.0);
  for (const double mean : means) jackknife.leaveOut(ofMean(mean));
  double squares = 0.0;
  for (const double mean : means) squares += (mean - 2.3) * (mean - 2.3);
  EXPECT_DOUBLE_EQ(jackknife.estimate().value, 2.3);
  EXPECT_NEAR(jackknife.estimate().error, std::sqrt(squares / (5 * 4)), 1e-14);
}

TEST(Jackknife, OfOneReplicaHasNoError) {
  ReplicaSums sums;
  sums.add(ofMean(3.0));
  Jackknife jackknife(average, sums, 1.0);
  jackknife.leaveOut(ofMean(3.0));
  EXPECT_EQ(jackknife.estimate().value, 3.0);
  EXPECT_TRUE(std::isnan(jackknife.estimate().error));
}

/// Independent normal values: <x^4> = 3 <x^2>^2, so the cumulant is 0, and the errors must cover it.
TEST(Jackknife, ErrorsOfTheCumulantCoverItsValue) {
  std::mt19937_64 source(9);
  std::normal_distribution<double> normal;
  int within = 0;
  constexpr int experiments = 400, replicas = 50, measurements = 100;
  for (int experiment = 0; experiment < experiments; ++experiment) {
    std::vector<Moments> all;
    ReplicaSums sums;
    for (int replica = 0; replica < replicas; ++replica) {
      std::vector<double> values;
      for (int k = 0; k < measurements; ++k) values.push_back(normal(source));
      all.push_back(momentsOf(values));
      sums.add(all.back());
    }
    Jackknife jackknife(binderCumulant, sums, 1.0);
    for (const Moments& moments : all) jackknife.leaveOut(moments);
    if (std::abs(jackknife.estimate().value) < jackknife.estimate().error) ++within;
  }
  EXPECT_NEAR(within / double{experiments}, 0.683, 0.07);
}

TEST(Estimates, SusceptibilitySpecificHeatAndCumulantFollowTheirDefinitions) {
  ReplicaSums sums;
  sums.add({0.5, 0.35, 0.2, 1.0});
  sums.add({0.1, 0.15, 0.1, 1.0});
  EXPECT_DOUBLE_EQ(susceptibility(sums, 64.0), 64.0 * (0.25 - 0.09));
  EXPECT_DOUBLE_EQ(specificHeat(sums, 64.0), (0.25 - 0.09) / 64.0);
  EXPECT_NEAR(binderCumulant(sums, 64.0), 1.0 - 0.15 / (3.0 * 0.25 * 0.25), 1e-14);
}

}  // namespace
}  // namespace quorvane
