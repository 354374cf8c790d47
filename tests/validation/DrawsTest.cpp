#include <array>
#include <cmath>

#include "Figures.h"
#include "System.h"
#include "engine/f_ran0.h"

namespace quorvane::validation {
namespace {

class Draws : public ValidationTest {};

TEST_F(Draws, HaveTheMomentsOfTheUniformDistribution) {
  constexpr std::int64_t draws = 100'000'000;
  constexpr int highest = 4;
  double sums[highest + 1] = {};
  for (std::int64_t k = 0; k < draws; ++k) {
    const double u = fRandReal();
    double power = 1.0;
    for (int n = 1; n <= highest; ++n) sums[n] += power *= u;
  }
  static const char* const names[] = {"", "mean of u", "mean of u²", "mean of u³", "mean of u⁴"};
  for (int n = 1; n <= highest; ++n) {
    const double mean = 1.0 / (n + 1), variance = 1.0 / (2 * n + 1) - mean * mean;
    expectAgreement(names[n], {sums[n] / draws, std::sqrt(variance / draws)}, mean);
  }
}

TEST_F(Draws, AreUncorrelatedAtAllLagsUpTo128) {
  constexpr std::int64_t draws = 20'000'000;
  constexpr std::size_t lags = 128;
  std::array<double, lags> last{}, sums{};
  for (auto& u : last) u = fRandReal() - 0.5;
  for (std::size_t k = 0; k < draws; ++k) {
    const double u = fRandReal() - 0.5;
    for (std::size_t lag = 1; lag <= lags; ++lag) sums[lag - 1] += u * last[(k - lag) % lags];
    last[k % lags] = u;
  }
  double farthest = 0.0;
  for (const double sum : sums) {
    const double z = sum / draws / (1.0 / 12 / std::sqrt(static_cast<double>(draws)));
    if (std::abs(z) > std::abs(farthest)) farthest = z;
  }
  expectAgreement("covariance of draws 1, 2, …, 128 apart: each of 128", "0", "128 sums", farthest);
}

TEST_F(Draws, FallEquallyOftenIntoTheCellsOfASquareAndACube) {
  constexpr std::int64_t tuples = 50'000'000;
  std::vector<std::int64_t> square(64 * 64), cube(16 * 16 * 16);
  const auto cell = [](int cells) { return static_cast<std::size_t>(fRandReal() * cells); };
  for (std::int64_t k = 0; k < tuples; ++k) {
    const std::size_t first = cell(64);
    ++square[first * 64 + cell(64)];
  }
  for (std::int64_t k = 0; k < tuples; ++k) {
    const std::size_t first = cell(16), second = cell(16);
    ++cube[(first * 16 + second) * 16 + cell(16)];
  }
  ChiSquared pairs, triples;
  pairs.addUniform(square);
  triples.addUniform(cube);
  expectAgreement("pairs in 64 × 64 cells", pairs);
  expectAgreement("triples in 16 × 16 × 16 cells", triples);
}

TEST_F(Draws, ChooseEverySiteEquallyOften) {
  // Each attempt at a site increases its type by one, so the lattice counts the attempts of a sweep.
  System system{5, 3, 10, {}};
  for (int type = 0; type < 10; ++type) system.rules.push_back({kIrreversibleFlip, type, (type + 1) % 10});
  const auto model = modelOf(system);
  constexpr int sweeps = 400'000;
  std::vector<std::int64_t> attempts(15);
  for (int sweep = 0; sweep < sweeps; ++sweep) {
    fill(*model, 0);
    model->sweep();
    for (int site = 0; site < 15; ++site)
      attempts[static_cast<std::size_t>(site)] += model->getSiteValue(site / 3, site % 3);
  }
  // A site tried ten times shows 0, which is rarer than the error of these counts.
  ChiSquared sites;
  sites.addUniform(attempts);
  expectAgreement("sites of a sweep on 5 × 3", sites);
}

TEST_F(Draws, ChooseEveryDirectionEquallyOften) {
  const auto model = modelOf({5, 5, 2, {{kSwap, 1, kAnyPixelType}}});
  constexpr int swaps = 8'000'000;
  std::vector<std::int64_t> ends(25);
  fill(*model, 0);
  for (int k = 0; k < swaps; ++k) {
    model->setSiteValue(2, 2, 1);
    attemptAt(*model, 2, 2);
    for (int i = 1; i <= 3; ++i)
      for (int j = 1; j <= 3; ++j)
        if (model->getSiteValue(i, j) == 1) {
          ++ends[static_cast<std::size_t>(i * 5 + j)];
          model->setSiteValue(i, j, 0);
        }
  }
  std::vector<std::int64_t> directions;
  for (int dir = 1; dir <= kNumDirections; ++dir)
    directions.push_back(ends[static_cast<std::size_t>(fn_neighbi(2, dir) * 5 + fn_neighbj(2, dir))]);
  ChiSquared chiSquared;
  chiSquared.addUniform(directions);
  expectAgreement("directions of a swap", chiSquared);
}

/// How often one attempt turns a site of type 0 into each type.
std::vector<std::int64_t> outcomesOfAttempts(const System& system, int attempts) {
  const auto model = modelOf(system);
  std::vector<std::int64_t> outcomes(static_cast<std::size_t>(system.types));
  for (int k = 0; k < attempts; ++k) {
    model->setSiteValue(0, 0, 0);
    attemptAt(*model, 0, 0);
    ++outcomes[static_cast<std::size_t>(model->getSiteValue(0, 0))];
  }
  return outcomes;
}

ChiSquared chiSquaredOf(const std::vector<std::int64_t>& outcomes, const std::vector<double>& expected) {
  ChiSquared chiSquared;
  chiSquared.add(outcomes, expected);
  return chiSquared;
}

constexpr int kAttempts = 10'000'000;

TEST_F(Draws, ChooseEveryRuleEquallyOften) {
  System system{3, 3, 8, {}};
  for (int type = 1; type < 8; ++type) system.rules.push_back({kIrreversibleFlip, 0, type});
  const double each = 1.0 / 7;
  expectAgreement("seven rules of one type", chiSquaredOf(outcomesOfAttempts(system, kAttempts),
                                                          {0, each, each, each, each, each, each, each}));
}

TEST_F(Draws, ChooseEveryEnabledRuleEquallyOften) {
  System system{3, 3, 8, {}};
  for (int type = 1; type < 8; ++type) system.rules.push_back({kIrreversibleFlip, 0, type});
  for (const std::size_t rule : {0, 3, 4}) system.rules[rule].disabled = true;
  expectAgreement("seven rules, three of them disabled",
                  chiSquaredOf(outcomesOfAttempts(system, kAttempts), {0, 0, .25, .25, 0, 0, .25, .25}));
}

TEST_F(Draws, ChooseARuleWithTwoEntriesInARowTwiceAsOften) {
  const System system{3, 3, 3, {{kReversibleFlip, 0, kAnyPixelType}, {kIrreversibleFlip, 0, 1}}};
  const auto outcomes = outcomesOfAttempts(system, kAttempts);
  // The flip between 0 and any type gives one of three types, 0 among them, in two of three attempts.
  expectAgreement("a flip with an end of any type beside another rule",
                  chiSquaredOf(outcomes, {2.0 / 9, 2.0 / 9 + 1.0 / 3, 2.0 / 9}));
  expectRejection("a flip with an end of any type, if it stood in the row once",
                  chiSquaredOf(outcomes, {1.0 / 6, 1.0 / 6 + 1.0 / 2, 1.0 / 6}));
}

TEST_F(Draws, ChooseEveryTypeEquallyOftenIncludingTheCurrentOne) {
  const System system{3, 3, 5, {{kIrreversibleFlip, 0, kAnyPixelType}}};
  const auto outcomes = outcomesOfAttempts(system, kAttempts);
  expectAgreement("a flip to any of five types", chiSquaredOf(outcomes, {.2, .2, .2, .2, .2}));
}

TEST_F(Draws, AcceptWithTheProbabilityOfTheParameter) {
  const System system{3, 3, 2, {{kIrreversibleFlip, 0, 1, 0.3}}};
  const auto outcomes = outcomesOfAttempts(system, kAttempts);
  expectAgreement("a flip of parameter 0.3", share(outcomes[1], kAttempts, 0.3), 0.3);
  expectRejection("a flip of parameter 0.301", share(outcomes[1], kAttempts, 0.301), 0.301);
}

}  // namespace
}  // namespace quorvane::validation
