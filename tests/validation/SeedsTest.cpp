#include <algorithm>
#include <cmath>
#include <vector>

#include "Figures.h"
#include "engine/f_ran0.h"

// Runs with different seeds must be as good as independent.

namespace quorvane::validation {
namespace {

class Seeds : public ValidationTest {};

/// The first draws after a seed, less their mean of 1/2.
std::vector<double> centredDraws(int seed, int count) {
  processRandomSource.startAnew(seed);
  std::vector<double> draws(static_cast<std::size_t>(count));
  for (double& draw : draws) draw = fRandReal() - 0.5;
  return draws;
}

/// The correlation coefficient, with the known variance 1/12 of a draw. Of independent draws it is normal
/// with the standard deviation 1 / sqrt(n).
double correlation(const std::vector<double>& a, const std::vector<double>& b) {
  double sum = 0.0;
  for (std::size_t k = 0; k < a.size(); ++k) sum += a[k] * b[k];
  return 12.0 * sum / static_cast<double>(a.size());
}

TEST_F(Seeds, OfTheFirstTwoHundredNoPairIsCorrelated) {
  constexpr int seeds = 200, draws = 1000;
  std::vector<std::vector<double>> runs;
  for (int seed = 1; seed <= seeds; ++seed) runs.push_back(centredDraws(seed, draws));
  double largest = 0.0, sumOfSquares = 0.0;
  int pairs = 0;
  for (int a = 0; a < seeds; ++a)
    for (int b = a + 1; b < seeds; ++b, ++pairs) {
      const double normal =
          correlation(runs[static_cast<std::size_t>(a)], runs[static_cast<std::size_t>(b)]) *
          std::sqrt(draws);
      largest = std::max(largest, std::abs(normal));
      sumOfSquares += normal * normal;
    }
  ASSERT_EQ(pairs, 19'900);
  expectAgreement("correlations of each two of the first 200 seeds: each of 19900", "0", "1000 draws each",
                  largest);
  const Estimate variance{sumOfSquares / pairs, std::sqrt(2.0 / pairs)};
  expectAgreement("variance of these correlations, of its expected one", variance, 1.0);
  constexpr double shared = 0.01;
  expectRejection("variance, if each two seeds had a correlation of 0.01", variance,
                  1.0 + draws * shared * shared);
}

TEST_F(Seeds, ScatterTheMeansOfFiveHundredRunsAsIndependentRunsDo) {
  constexpr int seeds = 500, draws = 1000;
  double sum = 0.0, sumOfSquares = 0.0;
  for (int seed = 1; seed <= seeds; ++seed) {
    double mean = 0.0;
    for (const double draw : centredDraws(seed, draws)) mean += draw / draws;
    const double normal = mean * std::sqrt(12.0 * draws);
    sum += normal;
    sumOfSquares += normal * normal;
  }
  const double mean = sum / seeds, variance = sumOfSquares / seeds - mean * mean;
  expectAgreement("mean of the means of 500 seeds, in their expected scatter", {mean, std::sqrt(1.0 / seeds)},
                  0.0);
  expectAgreement("variance of these means, of its expected one", {variance, std::sqrt(2.0 / seeds)}, 1.0);
}

}  // namespace
}  // namespace quorvane::validation
