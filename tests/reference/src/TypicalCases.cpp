#include "RandomValues.h"
#include "reference/Cases.h"

namespace quorvane::reference {
namespace {

constexpr int kSide = 254;

std::unique_ptr<System> mixture(int numTypes) {
  auto system = std::make_unique<System>();
  system->imax = system->jmax = kSide;
  system->numTypes = numTypes;
  RandomValues values(1);
  for (int i = 0; i < kSide; ++i)
    for (int j = 0; j < kSide; ++j) system->lattice[i][j] = values.below(numTypes);
  return system;
}

std::unique_ptr<System> noRules() { return mixture(2); }

/// Two types that flip into each other, close to criticality.
std::unique_ptr<System> flips() {
  auto system = mixture(2);
  addRule(*system, 1, 0, 1);
  system->J[0][0] = system->J[1][1] = -0.38;
  system->J[0][1] = system->J[1][0] = 0.38;
  return system;
}

/// Two types that repel each other and are conserved.
std::unique_ptr<System> swaps() {
  auto system = mixture(2);
  addRule(*system, 2, -1, -1);
  system->J[0][1] = system->J[1][0] = 1.0;
  return system;
}

/// A type that spreads next to its own kind, and dies out at a smaller rate.
std::unique_ptr<System> facilitatedFlips() {
  auto system = mixture(2);
  const int growth = addRule(*system, 0, 0, 1);
  const int decay = addRule(*system, 0, 1, 0);
  system->ruleParameter[decay] = 0.6;
  for (const int rule : {growth, decay}) {
    system->ruleIgnoreEnergy[rule] = 1;
    system->ruleFac[rule][0] = 2;
    system->ruleFac[rule][1] = 1;
  }
  return system;
}

/// A solvent in which two repelling types diffuse, turn into each other and dissolve.
std::unique_ptr<System> threeTypes() {
  auto system = mixture(3);
  addRule(*system, 2, 0, -1);
  addRule(*system, 2, 1, 2);
  addRule(*system, 1, 1, 2);
  addRule(*system, 1, 0, 2);
  system->J[1][2] = system->J[2][1] = 0.9;
  system->J[1][1] = system->J[2][2] = -0.4;
  system->field[0] = -0.2;
  return system;
}

/// Ten types with 24 rules of every kind, some facilitated, some disabled, with energies and masquerades.
std::unique_ptr<System> tenTypes() {
  auto system = mixture(10);
  RandomValues values(24);
  for (int k = 0; k < 24; ++k) {
    const int endA = values.below(4) == 0 ? -1 : values.below(10);
    const int endB = values.below(4) == 0 ? -1 : values.below(10);
    const int rule = addRule(*system, k % 4, endA, endB);
    system->ruleParameter[rule] = values.between(0.2, 1.0);
    system->ruleFac[rule][0] = values.below(3);
    system->ruleFac[rule][1] = values.below(10);
    system->ruleIgnoreEnergy[rule] = values.below(4) == 0 ? 1 : 0;
    system->ruleDisabled[rule] = values.below(8) == 0 ? 1 : 0;
  }
  for (int a = 0; a < 10; ++a) {
    system->field[a] = values.between(-0.2, 0.2);
    for (int b = 0; b <= a; ++b) system->J[a][b] = system->J[b][a] = values.between(-0.5, 0.5);
  }
  system->masquerade[3] = 1;
  system->masquerade[7] = 1;
  system->immobile[9] = 1;
  return system;
}

}  // namespace

std::span<const Case> typicalCases() {
  static const Case cases[] = {
      {"NoRules", 100'000, noRules},
      {"FlipsWithPairEnergies", 400'000, flips},
      {"SwapsWithPairEnergies", 400'000, swaps},
      {"FacilitatedFlips", 400'000, facilitatedFlips},
      {"ThreeTypes", 400'000, threeTypes},
      {"TenTypesWithRulesOfAllKinds", 400'000, tenTypes},
  };
  return cases;
}

}  // namespace quorvane::reference
