#include "SmallSystems.h"

#include <algorithm>
#include <cmath>

#include "TransitionMatrix.h"

namespace quorvane::validation {
namespace {

// All energies are multiples of 1/8, so that sums of them are exact.

System twoTypes(int imax, int jmax) {
  System system{imax, jmax, 2, {}};
  setPairEnergy(system, 0, 1, 0.5);
  setPairEnergy(system, 1, 1, -0.25);
  system.field[1] = 0.625;
  return system;
}

System threeTypes(int imax, int jmax) {
  System system{imax, jmax, 3, {}};
  setPairEnergy(system, 0, 1, 0.375);
  setPairEnergy(system, 0, 2, -0.125);
  setPairEnergy(system, 1, 2, 0.25);
  setPairEnergy(system, 1, 1, -0.25);
  setPairEnergy(system, 2, 2, 0.125);
  system.field[1] = 0.5;
  system.field[2] = -0.25;
  return system;
}

System with(System system, std::vector<Rule> rules) {
  system.rules = std::move(rules);
  return system;
}

/// Swaps conserve the numbers of types, which leaves fewer configurations, so the energies are larger here.
System withPairEnergiesTimes(double factor, System system) {
  for (auto& row : system.J)
    for (double& energy : row) energy *= factor;
  return system;
}

System facilitated() {
  System system = with(System{3, 2, 2, {}}, {{kReversibleFlip, 0, 1, 1.0, 2, 1}});
  system.field[1] = 0.75;
  return system;
}

System lopsided() {
  System system = with(threeTypes(3, 2), {{kReversibleFlip, -1, -1}, {kSwap, -1, -1}});
  system.J[0][1] = 0.75;
  system.J[1][0] = -0.5;
  system.J[2][1] = 0.875;
  return system;
}

const Rule kFlip01{kReversibleFlip, 0, 1}, kFlip12{kReversibleFlip, 1, 2}, kFlip02{kReversibleFlip, 0, 2};
const Rule kFlipAny{kReversibleFlip, -1, -1}, kSwapAny{kSwap, -1, -1}, kSwap01{kSwap, 0, 1};

std::vector<SmallSystem> makeSmallSystems() {
  const Configuration zeros4(4, 0), zeros6(6, 0);
  return {
      {"Flips2x2", "2 × 2, two types, flips, field", with(twoTypes(2, 2), {kFlip01}), zeros4},
      {"Flips3x2", "3 × 2, two types, flips, field", with(twoTypes(3, 2), {kFlip01}), zeros6},
      {"Flips1x4", "1 × 4, two types, flips, field", with(twoTypes(1, 4), {kFlip01}), zeros4},
      {"FlipsOfThreeTypes2x2", "2 × 2, three types, flips between each two, fields",
       with(threeTypes(2, 2), {kFlip01, kFlip12, kFlip02}), zeros4},
      {"FlipsToAnyType3x2", "3 × 2, three types, flip between any two, fields",
       with(threeTypes(3, 2), {kFlipAny}), zeros6},
      {"ChainOfFlips3x2", "3 × 2, three types, flips 0–1 and 1–2, fields",
       with(threeTypes(3, 2), {kFlip01, kFlip12}), zeros6},
      {"Swaps2x2",
       "2 × 2, two types, swaps",
       with(withPairEnergiesTimes(2, twoTypes(2, 2)), {kSwapAny}),
       {0, 0, 1, 1}},
      {"Swaps3x2",
       "3 × 2, two types, swaps of 0 with 1",
       with(withPairEnergiesTimes(2, twoTypes(3, 2)), {kSwap01}),
       {0, 0, 0, 1, 1, 1}},
      {"Swaps4x3",
       "4 × 3, two types, swaps",
       with(withPairEnergiesTimes(2, twoTypes(4, 3)), {kSwapAny}),
       {1, 1, 0, 0, 1, 1, 0, 0, 0, 0, 0, 0}},
      {"Swaps1x4",
       "1 × 4, two types, swaps",
       with(withPairEnergiesTimes(2, twoTypes(1, 4)), {kSwapAny}),
       {0, 0, 1, 1}},
      {"SwapsOfThreeTypes2x2",
       "2 × 2, three types, swaps",
       with(withPairEnergiesTimes(3, threeTypes(2, 2)), {kSwapAny}),
       {0, 1, 2, 2}},
      {"SwapsOfThreeTypes3x2",
       "3 × 2, three types, swaps",
       with(withPairEnergiesTimes(3, threeTypes(3, 2)), {kSwapAny}),
       {0, 0, 1, 1, 2, 2}},
      {"FlipsAndSwaps3x2", "3 × 2, three types, flips and swaps, fields",
       with(threeTypes(3, 2), {kFlipAny, kSwapAny}), zeros6},
      {"FacilitatedFlips3x2",
       "3 × 2, two types, flips that need two neighbours of type 1, field",
       facilitated(),
       {1, 1, 1, 1, 1, 1}},
      {"PairEnergiesThatDependOnTheOrder3x2", "3 × 2, three types, flips and swaps, J not symmetric",
       lopsided(), zeros6, true},
  };
}

}  // namespace

std::span<const SmallSystem> smallSystems() {
  static const std::vector<SmallSystem> systems = makeSmallSystems();
  return systems;
}

const SmallSystem& smallSystem(const std::string& name) {
  const auto systems = smallSystems();
  return *std::find_if(systems.begin(), systems.end(), [&](const auto& one) { return one.name == name; });
}

std::vector<double> derivedWeights(const System& system) {
  const Configurations all(system);
  std::vector<double> weights;
  for (int number = 0; number < all.count(); ++number) {
    const Configuration configuration = all.at(number);
    double weight = std::exp(-effectiveEnergy(system, configuration));
    for (const int type : configuration)
      weight *= std::max(1.0, static_cast<double>(rowOf(system, type).size()));
    weights.push_back(weight);
  }
  return weights;
}

std::vector<double> derivedProbabilities(const SmallSystem& small, const std::vector<bool>& reachable) {
  std::vector<double> weights = derivedWeights(small.system);
  double sum = 0.0;
  for (std::size_t k = 0; k < weights.size(); ++k) {
    if (!reachable[k]) weights[k] = 0.0;
    sum += weights[k];
  }
  for (double& weight : weights) weight /= sum;
  return weights;
}

}  // namespace quorvane::validation
