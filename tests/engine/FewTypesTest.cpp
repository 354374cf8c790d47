#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <vector>

#include "EngineTest.h"
#include "FewTypes.h"
#include "engine/RandomSource.h"
#include "reference/LatticeFunctions.h"

namespace quorvane {
namespace {

using reference::System;

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

/// Two types and flips of every kind between them, the first of which a test changes.
std::unique_ptr<System> twoTypes() {
  auto system = std::make_unique<System>();
  system->imax = system->jmax = 3;
  system->numTypes = 2;
  for (const int ignoresEnergy : {0, 1})
    for (const int needed : {0, 1, 3, 8, 9}) {
      const int rule = reference::addRule(*system, ignoresEnergy, ignoresEnergy, 1 - ignoresEnergy);
      system->ruleIgnoreEnergy[rule] = ignoresEnergy;
      system->ruleParameter[rule] = 0.1 + 0.17 * needed;
      system->ruleFac[rule][0] = needed;
      system->ruleFac[rule][1] = needed % 2;
    }
  for (const int end : {0, 1}) reference::addRule(*system, 0, end, end);
  system->J[0][0] = -0.38;
  system->J[0][1] = 0.1;
  system->J[1][0] = 0.3;  // only the row of the site's own type counts
  system->J[1][1] = 1.0 / 3;
  system->field[0] = 0.05;
  system->field[1] = -0.7;
  return system;
}

/// Three types and flips of every kind between them: as many as can have a table.
std::unique_ptr<System> threeTypes() {
  auto system = std::make_unique<System>();
  system->imax = system->jmax = 3;
  system->numTypes = 3;
  for (int k = 0; k < 9; ++k) {
    const int rule = reference::addRule(*system, 0, k % 3, (k + 1 + k / 6) % 3);
    system->ruleIgnoreEnergy[rule] = k % 2;
    system->ruleParameter[rule] = 0.25 + 0.1 * k;
    system->ruleFac[rule][0] = k / 2;
    system->ruleFac[rule][1] = k / 3;
  }
  for (int a = 0; a < 3; ++a) {
    system->field[a] = 0.1 * a;
    for (int b = 0; b < 3; ++b) system->J[a][b] = 0.3 * a - 0.7 * b + (a == b ? 1e16 : 0.0);
  }
  system->masquerade[2] = 0;
  return system;
}

/// What the tables say of a system of kTypes types, beside the plain functions of a single attempt.
template <Type kTypes>
class Tables {
 public:
  using Code = NeighbourhoodCode<kTypes>;

  explicit Tables(System& system) : system_(system), engine_(reference::toEngine(system)) { read(); }

  bool read() {
    reference::copyTo(*engine_, system_);
    const SystemArrays arrays = reference::arraysOf(*engine_);
    const bool actionsChanged = actions_.read(arrays.numTypes, arrays.rules);
    const bool energiesChanged = energies_.read(arrays.rules);
    few_ = std::make_unique<FewTypes<kTypes>>(actions_, energies_);
    return actionsChanged || energiesChanged;
  }

  /// Compares every flip that has a table at every neighbourhood; returns how many draws are accepted by some
  /// and rejected by others of them.
  int compareAll() {
    int undecided = 0;
    for (std::uint32_t code = 0; code < Code::kCount; ++code) {
      surround(code);
      for (Type current = 0; current < kTypes; ++current) {
        system_.lattice[1][1] = static_cast<int>(current);
        for (std::uint32_t k = 0; k < actions_.length(current); ++k) {
          const Action& action = actions_.row(current)[k];
          const auto& flip = few_->flip(current, k);
          EXPECT_EQ(flip.numAccepted != nullptr, action.flipsToGivenType() && !action.rare);
          if (flip.numAccepted == nullptr) continue;
          const int rule = system_.accessible[current][k];
          const std::uint32_t accepted = flip.numAccepted[code];
          const auto final = static_cast<int>(flip.final);
          EXPECT_LE(accepted, kDraws);
          EXPECT_TRUE(accepted == 0 || accepts(rule, final, accepted - 1))
              << "code " << code << ", rule " << rule << ", type " << current;
          EXPECT_TRUE(accepted == kDraws || !accepts(rule, final, accepted))
              << "code " << code << ", rule " << rule << ", type " << current;
          if (accepted > 0 && accepted < kDraws) ++undecided;
        }
      }
    }
    return undecided;
  }

  const FewTypes<kTypes>& few() const { return *few_; }
  const ActionTable& actions() const { return actions_; }

 private:
  static constexpr std::uint32_t kDraws = 1u << 31;

  void surround(std::uint32_t code) {
    neighbours_ = Code::neighboursOf(code);
    for (int dir = 1; dir <= kNumDirections; ++dir)
      system_.lattice[reference::fn_neighbi(1, dir)][reference::fn_neighbj(1, dir)] =
          static_cast<int>(neighbours_.type[dir - 1]);
  }

  /// Whether a whole draw accepts the flip of the site in the middle, from the plain functions.
  bool accepts(int rule, int final, std::uint32_t draw) {
    const int current = system_.lattice[1][1], facType = system_.ruleFac[rule][1];
    int count = 0;
    for (int type = 0; type < static_cast<int>(kTypes); ++type)
      count += ((type == facType ? 1 : 0) + (system_.masquerade[type] == facType ? 1 : 0)) *
               reference::fNumNeighbourSitesOfType(1, 1, 3, 3, type, system_.lattice);
    if (count < system_.ruleFac[rule][0]) return false;
    double probability = 1.0;
    if (system_.ruleIgnoreEnergy[rule] != 1) {
      const auto energy = [&](int type) {
        return reference::fSiteNNEnergyLM(1, 1, 3, 3, system_.lattice, system_.J, type) + system_.field[type];
      };
      const double weight = std::exp(-(energy(final) - energy(current)));
      if (weight < 1.0) probability = weight;
    }
    return system_.ruleParameter[rule] * probability > draw / RandomSource::maxran;
  }

  System& system_;
  std::unique_ptr<reference::EngineSystem> engine_;
  ActionTable actions_;
  EnergyTable energies_;
  std::unique_ptr<FewTypes<kTypes>> few_;
  Neighbours neighbours_ = {};
};

TEST(FewTypes, AcceptExactlyTheDrawsOfSingleAttemptsAtEveryNeighbourhood) {
  const auto system = twoTypes();
  EXPECT_GT(Tables<2>(*system).compareAll(), 1000);
}

TEST(FewTypes, AcceptExactlyTheDrawsOfSingleAttemptsForAnyParameter) {
  const auto system = twoTypes();
  for (const double parameter : {0.0, -0.0, 1.0, 0.5, 1.5, 3e9, -0.3, 1.0 / 2147483648.0, 1e-10, 1e-310,
                                 1.0 - 1e-16, kInfinity, -kInfinity, kNotANumber}) {
    SCOPED_TRACE(parameter);
    for (double& each : system->ruleParameter) each = parameter;
    Tables<2>(*system).compareAll();
  }
}

TEST(FewTypes, AcceptExactlyTheDrawsOfSingleAttemptsForAnyEnergy) {
  // 1e16 + 1 rounds, so that the order of a sum decides; two infinities may differ by no number.
  for (const double energy :
       {0.0, 1e-17, 1.0, 1e16, -1e16, 700.0, -750.0, kInfinity, -kInfinity, kNotANumber})
    for (const auto& place : {std::pair(0, 0), {0, 1}, {1, 0}, {1, 1}}) {
      SCOPED_TRACE(testing::Message() << energy << " between " << place.first << " and " << place.second);
      const auto system = twoTypes();
      system->J[place.first][place.second] = energy;
      Tables<2>(*system).compareAll();
      system->field[place.first] = energy;
      Tables<2>(*system).compareAll();
    }
}

TEST(FewTypes, CountAMasqueradeAsItsType) {
  const auto system = twoTypes();
  for (const auto& [of0, of1] : {std::pair(-1, -1), {1, -1}, {-1, 0}, {1, 0}, {0, 1}}) {
    system->masquerade[0] = of0;
    system->masquerade[1] = of1;
    Tables<2>(*system).compareAll();
  }
}

TEST(FewTypes, AcceptExactlyTheDrawsOfSingleAttemptsAtEveryNeighbourhoodOfThreeTypes) {
  const auto system = threeTypes();
  EXPECT_GT(Tables<3>(*system).compareAll(), 10000);
}

TEST(FewTypes, HaveNoTableForMoreFlipsThanFitTheCache) {
  const auto system = threeTypes();
  reference::addRule(*system, 0, 2, 1);
  const Tables<3> tables(*system);
  int with = 0;
  for (Type type = 0; type < 3; ++type)
    for (std::uint32_t k = 0; k < tables.actions().length(type); ++k)
      with += tables.few().flip(type, k).numAccepted != nullptr ? 1 : 0;
  EXPECT_EQ(with, 9);
}

template <Type kTypes>
void compareBondEnergies(System& system) {
  using Code = NeighbourhoodCode<kTypes>;
  const Tables<kTypes> tables(system);
  for (std::uint32_t code = 0; code < Code::kCount; ++code) {
    const Neighbours neighbours = Code::neighboursOf(code);
    ASSERT_TRUE(Code::exists(neighbours));
    ASSERT_EQ(Code::of(neighbours), code);
    for (Type type = 0; type < kTypes; ++type)
      ASSERT_EQ(tables.few().bondsAt(type, code), tables.few().bonds(type, neighbours));
    for (std::size_t dir = 0; dir < kNumDirections; ++dir) {
      Neighbours changed = neighbours;
      changed.type[dir] = (changed.type[dir] + 1) % kTypes;
      ASSERT_EQ(Code::withChange(code, dir, neighbours.type[dir], changed.type[dir]), Code::of(changed));
      for (Type foreign = kTypes; foreign < kMaxPixelTypes; ++foreign) {
        changed.type[dir] = foreign;
        ASSERT_FALSE(Code::exists(changed));
      }
    }
  }
}

TEST(FewTypes, HaveACodeAlsoIfANeighbourHasChangedMeanwhile) {
  for (std::size_t dir = 0; dir < kNumDirections; ++dir) {
    for (const std::uint32_t code : {0u, 255u}) {
      EXPECT_LT(NeighbourhoodCode<2>::withChange(code, dir, 1, 0), 256u);
      EXPECT_LT(NeighbourhoodCode<2>::withChange(code, dir, 0, 1), 256u);
    }
    for (const std::uint32_t code : {0u, 6560u}) {
      EXPECT_LT(NeighbourhoodCode<3>::withChange(code, dir, 2, 0), 6561u);
      EXPECT_LT(NeighbourhoodCode<3>::withChange(code, dir, 0, 2), 6561u);
    }
  }
}

TEST(FewTypes, HaveTheBondEnergyOfEveryNeighbourhood) {
  const auto two = twoTypes();
  two->J[0][1] = 1e16;
  compareBondEnergies<2>(*two);
  compareBondEnergies<3>(*threeTypes());
}

TEST(FewTypes, AreReadAnewAfterAnyChange) {
  const auto system = twoTypes();
  Tables<2> tables(*system);
  EXPECT_FALSE(tables.read()) << "nothing has changed";
  const std::function<void(System&)> changes[] = {
      [](System& s) { s.ruleParameter[3] = 0.9; }, [](System& s) { s.ruleFac[2][0] = 5; },
      [](System& s) { s.ruleFac[3][1] = 1; },      [](System& s) { s.ruleIgnoreEnergy[4] = 1; },
      [](System& s) { s.ruleDisabled[1] = 1; },    [](System& s) { s.ruleEndPoints[0][1] = 0; },
      [](System& s) { s.ruleType[3] = 2; },        [](System& s) { s.masquerade[1] = 0; },
      [](System& s) { s.field[1] = 0.25; },        [](System& s) { s.J[0][1] = 0.7; },
      [](System& s) { --s.accessibleCount[0]; },   [](System& s) { s.accessible[1][0] = 2; },
  };
  for (std::size_t k = 0; k < std::size(changes); ++k) {
    changes[k](*system);
    EXPECT_TRUE(tables.read()) << "change " << k;
    EXPECT_FALSE(tables.read()) << "change " << k;
    tables.compareAll();
  }
}

}  // namespace
}  // namespace quorvane
