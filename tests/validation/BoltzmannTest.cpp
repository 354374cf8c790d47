#include <algorithm>
#include <cmath>
#include <numeric>

#include "Figures.h"
#include "SmallSystems.h"
#include "TransitionMatrix.h"

namespace quorvane::validation {
namespace {

class SmallSystemTest : public ValidationTest, public testing::WithParamInterface<SmallSystem> {
 protected:
  const System& system = GetParam().system;
  const Configurations all{system};
  const TransitionMatrix matrix{system};
  const int start = all.numberOf(GetParam().start);
  const std::vector<bool> reachable = matrix.reachableFrom(start);
  const std::vector<double> energies = energiesOfAll();

  std::vector<double> exactProbabilities() const {
    return GetParam().lopsided ? matrix.stationaryFrom(start) : derivedProbabilities(GetParam(), reachable);
  }

  std::vector<double> energiesOfAll() const {
    std::vector<double> each;
    for (int k = 0; k < all.count(); ++k) each.push_back(effectiveEnergy(system, all.at(k)));
    return each;
  }

  int numReachable() const { return static_cast<int>(std::count(reachable.begin(), reachable.end(), true)); }
};

class BoltzmannWeights : public SmallSystemTest {
 protected:
  /// The share of sweeps that end in each configuration.
  Blocks frequencies() const {
    constexpr int numBlocks = 100, sweepsPerBlock = 40'000, warmUp = 1000;
    const auto model = modelOf(system);
    all.write(start, *model);
    for (int sweep = 0; sweep < warmUp; ++sweep) model->sweep();
    Blocks blocks(all.count(), sweepsPerBlock);
    for (int sweep = 0; sweep < numBlocks * sweepsPerBlock; ++sweep) {
      model->sweep();
      blocks.add(all.numberOf(*model), 1.0);
      blocks.next();
    }
    return blocks;
  }

  double meanEnergy(Blocks::Means probabilities) const {
    return std::inner_product(energies.begin(), energies.end(), probabilities.begin(), 0.0);
  }

  /// The largest deviation among the frequencies.
  double farthestDeviation(const Blocks& blocks, Blocks::Means exact) const {
    double farthest = 0.0;
    for (int k = 0; k < all.count(); ++k) {
      const double probability = exact[static_cast<std::size_t>(k)];
      if (!reachable[static_cast<std::size_t>(k)]) {
        EXPECT_EQ(blocks.mean(k).value, 0.0) << "configuration " << k << " cannot be reached";
        continue;
      }
      const double z = deviation(blocks.mean(k), probability);
      if (!(std::abs(z) <= std::abs(farthest))) farthest = z;
    }
    return farthest;
  }

  /// The exact probabilities if all energies were larger by a factor.
  std::vector<double> withEnergiesTimes(double factor) const {
    SmallSystem other = GetParam();
    for (auto& row : other.system.J)
      for (double& energy : row) energy *= factor;
    for (double& energy : other.system.field) energy *= factor;
    if (other.lopsided) return TransitionMatrix(other.system).stationaryFrom(start);
    return derivedProbabilities(other, reachable);
  }
};

TEST_P(BoltzmannWeights, AreTheFrequenciesOfAllConfigurations) {
  const std::string& name = GetParam().description;
  const auto exact = exactProbabilities();
  const Blocks blocks = frequencies();
  for (int k = 0; k < all.count(); ++k)
    if (reachable[static_cast<std::size_t>(k)]) expectLongBlocks(blocks, k);

  const std::string count = std::to_string(numReachable());
  expectAgreement(name + ": each of " + count, GetParam().lopsided ? "solved" : "weight",
                  count + " frequencies", farthestDeviation(blocks, exact));
  const Estimate energy =
      blocks.functionOfMeans([this](Blocks::Means frequencies) { return meanEnergy(frequencies); });
  expectAgreement(name + ": mean energy", energy, meanEnergy(exact));
  expectRejection(name + ": all energies larger by 2 %", energy, meanEnergy(withEnergiesTimes(1.02)));
}

INSTANTIATE_TEST_SUITE_P(Systems, BoltzmannWeights, testing::ValuesIn(smallSystems()),
                         [](const auto& one) { return one.param.name; });

class ChainOfFlips : public BoltzmannWeights {};

/// A type with two rules uses each half as often, so it occurs twice as often.
TEST_P(ChainOfFlips, HoldsATypeWithTwoRulesTwiceAsOften) {
  std::vector<double> withoutRows;
  double sum = 0.0;
  for (int k = 0; k < all.count(); ++k) {
    withoutRows.push_back(std::exp(-energies[static_cast<std::size_t>(k)]));
    sum += withoutRows.back();
  }
  for (double& weight : withoutRows) weight /= sum;
  const auto shareOfTypeOne = [this](Blocks::Means probabilities) {
    double share = 0.0;
    for (int k = 0; k < all.count(); ++k) {
      const Configuration c = all.at(k);
      share += probabilities[static_cast<std::size_t>(k)] *
               static_cast<double>(std::count(c.begin(), c.end(), 1)) / system.sites();
    }
    return share;
  };
  const Estimate measured = frequencies().functionOfMeans(shareOfTypeOne);
  expectAgreement("share of type 1", measured, shareOfTypeOne(exactProbabilities()));
  expectRejection("share of type 1 without the factor of the rows", measured, shareOfTypeOne(withoutRows));
}

INSTANTIATE_TEST_SUITE_P(Systems, ChainOfFlips, testing::Values(smallSystem("ChainOfFlips3x2")),
                         [](const auto& one) { return one.param.name; });

}  // namespace
}  // namespace quorvane::validation
