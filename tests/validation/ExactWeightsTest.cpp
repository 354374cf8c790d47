#include <gtest/gtest.h>

#include <cmath>

#include "SmallSystems.h"
#include "TransitionMatrix.h"

namespace quorvane::validation {
namespace {

/// Exact statements, without draws. Energies here are multiples of 1/8 and their sums are exact, so energies
/// are compared bit for bit.
class ExactWeights : public testing::TestWithParam<SmallSystem> {
 protected:
  const System& system = GetParam().system;
  const Configurations all{system};
  const std::unique_ptr<LatticeModel> model = modelOf(system);
};

TEST_P(ExactWeights, EnergyOfASiteIsHalfTheSumOverEightDirections) {
  for (int number = 0; number < all.count(); ++number) {
    all.write(number, *model);
    double sites = 0.0;
    for (int i = 0; i < system.imax; ++i)
      for (int j = 0; j < system.jmax; ++j)
        sites += fSiteNNEnergyLM(i, j, system.imax, system.jmax, model->varSiteValues,
                                 model->varInteractionConstants, -1);
    double bonds = 0.0;
    const Configuration configuration = all.at(number);
    for (int i = 0; i < system.imax; ++i)
      for (int j = 0; j < system.jmax; ++j)
        for (int dir = 1; dir <= kNumDirections; ++dir)
          bonds += system.J[at(system, configuration, {i, j})]
                           [at(system, configuration, neighbourOf(system, {i, j}, dir))];
    ASSERT_EQ(sites, bonds / 2) << "configuration " << number;
  }
}

TEST_P(ExactWeights, FlipsUseTheChangeOfTheTotalEnergy) {
  int others = 0;
  for (int number = 0; number < all.count(); ++number) {
    all.write(number, *model);
    const Configuration before = all.at(number);
    for (int i = 0; i < system.imax; ++i)
      for (int j = 0; j < system.jmax; ++j)
        for (int type = 0; type < system.types; ++type) {
          const auto siteEnergy = [&](int substitute) {
            return fSiteNNEnergyLM(i, j, system.imax, system.jmax, model->varSiteValues,
                                   model->varInteractionConstants, substitute);
          };
          Configuration after = before;
          const auto site = static_cast<std::size_t>(i * system.jmax + j);
          after[site] = type;
          const double dE =
              siteEnergy(type) + system.field[type] - siteEnergy(-1) - system.field[before[site]];
          others += dE != effectiveEnergy(system, after) - effectiveEnergy(system, before);
        }
  }
  EXPECT_EQ(others > 0, GetParam().lopsided) << others;
}

TEST_P(ExactWeights, SwapsUseTheChangeOfTheTotalEnergy) {
  int others = 0;
  for (int number = 0; number < all.count(); ++number) {
    const Configuration before = all.at(number);
    for (int a = 0; a < system.sites(); ++a)
      for (int b = 0; b < system.sites(); ++b) {
        const auto bothSites = [&] {
          double energy = 0.0;
          for (const int site : {a, b})
            energy += fSiteNNEnergyLM(site / system.jmax, site % system.jmax, system.imax, system.jmax,
                                      model->varSiteValues, model->varInteractionConstants, -1);
          return energy;
        };
        Configuration after = before;
        std::swap(after[static_cast<std::size_t>(a)], after[static_cast<std::size_t>(b)]);
        all.write(number, *model);
        const double energyBefore = bothSites();
        all.write(all.numberOf(after), *model);
        others +=
            bothSites() - energyBefore != effectiveEnergy(system, after) - effectiveEnergy(system, before);
      }
  }
  EXPECT_EQ(others > 0, GetParam().lopsided) << others;
}

/// The transition matrix of the documented rules has the derived weights as its stationary distribution and
/// satisfies detailed balance with them.
TEST_P(ExactWeights, SatisfyDetailedBalanceUnderTheDocumentedRules) {
  const TransitionMatrix matrix(system);
  const int start = all.numberOf(GetParam().start);
  const auto reachable = matrix.reachableFrom(start);
  const auto weights = derivedProbabilities(GetParam(), reachable);
  double worst = 0.0;
  for (int from = 0; from < matrix.count(); ++from) {
    if (!reachable[static_cast<std::size_t>(from)]) continue;
    for (const auto& [to, probability] : matrix.from(from)) {
      const double there = weights[static_cast<std::size_t>(from)] * probability;
      const double back = weights[static_cast<std::size_t>(to)] * matrix.probability(to, from);
      worst = std::max(worst, std::abs(there - back) / there);
    }
  }
  if (GetParam().lopsided)
    EXPECT_GT(worst, 0.1);
  else
    EXPECT_LT(worst, 1e-12);
}

TEST_P(ExactWeights, AreTheLimitOfTheDocumentedRules) {
  const TransitionMatrix matrix(system);
  const int start = all.numberOf(GetParam().start);
  const auto weights = derivedProbabilities(GetParam(), matrix.reachableFrom(start));
  const auto stationary = matrix.stationaryFrom(start);
  double worst = 0.0;
  for (std::size_t k = 0; k < weights.size(); ++k)
    worst = std::max(worst, std::abs(stationary[k] - weights[k]));
  if (GetParam().lopsided)
    EXPECT_GT(worst, 1e-4);
  else
    EXPECT_LT(worst, 1e-11);
}

INSTANTIATE_TEST_SUITE_P(Systems, ExactWeights, testing::ValuesIn(smallSystems()),
                         [](const auto& one) { return one.param.name; });

/// How often directions lead from one site to another, as in the page's table.
struct BondCount {
  int imax, jmax;
  int alongI, alongJ, diagonal, itself;
};

TEST(BondsOnNarrowLattices, AreCountedOncePerDirection) {
  static constexpr BondCount counts[] = {{2, 2, 2, 2, 4, 0}, {3, 2, 1, 2, 2, 0}, {1, 4, 0, 3, 0, 2},
                                         {3, 3, 1, 1, 1, 0}, {1, 1, 0, 0, 0, 8}, {1, 2, 0, 6, 0, 2}};
  for (const BondCount& expected : counts) {
    const System system{expected.imax, expected.jmax, 1, {}};
    int alongI = 0, alongJ = 0, diagonal = 0, itself = 0;
    const auto leadsTo = [&](int i, int j) {
      int directions = 0;
      for (int dir = 1; dir <= kNumDirections; ++dir)
        directions +=
            fn_pbc(fn_neighbi(0, dir), system.imax) == i && fn_pbc(fn_neighbj(0, dir), system.jmax) == j;
      return directions;
    };
    itself = leadsTo(0, 0);
    if (system.imax > 1) alongI = leadsTo(1, 0);
    if (system.jmax > 1) alongJ = leadsTo(0, 1);
    if (system.imax > 1 && system.jmax > 1) diagonal = leadsTo(1, 1);
    EXPECT_EQ(alongI, expected.alongI) << expected.imax << " by " << expected.jmax;
    EXPECT_EQ(alongJ, expected.alongJ) << expected.imax << " by " << expected.jmax;
    EXPECT_EQ(diagonal, expected.diagonal) << expected.imax << " by " << expected.jmax;
    EXPECT_EQ(itself, expected.itself) << expected.imax << " by " << expected.jmax;
  }
}

/// Energies of 2 by 2 and 3 by 2 lattices added up by hand from the page's table of bonds.
TEST(BondsOnNarrowLattices, AddUpToTheTotalEnergy) {
  for (const SmallSystem& small : smallSystems()) {
    const System& s = small.system;
    if (small.lopsided || s.imax == 1 || s.imax == 4) continue;
    const Configurations all(s);
    for (int number = 0; number < all.count(); ++number) {
      const Configuration c = all.at(number);
      const auto J = [&](std::size_t a, std::size_t b) { return s.J[c[a]][c[b]]; };
      double energy = 0.0;
      for (const int type : c) energy += s.field[type];
      if (s.imax == 2)  // Sites 0 1 / 2 3: edges twice at half, diagonals four times at half.
        energy += J(0, 1) + J(2, 3) + J(0, 2) + J(1, 3) + 2 * (J(0, 3) + J(1, 2));
      else  // Sites 0 1 / 2 3 / 4 5: two rings of three once, all other pairs twice, at half.
        energy += 0.5 * (J(0, 2) + J(2, 4) + J(4, 0) + J(1, 3) + J(3, 5) + J(5, 1)) + J(0, 1) + J(2, 3) +
                  J(4, 5) + J(0, 3) + J(0, 5) + J(2, 1) + J(2, 5) + J(4, 1) + J(4, 3);
      ASSERT_EQ(energy, effectiveEnergy(s, c)) << small.name << ", configuration " << number;
    }
  }
}

}  // namespace
}  // namespace quorvane::validation
