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

/// What the tables say of a system, beside the plain functions of a single attempt.
class Tables {
 public:
  explicit Tables(System& system) : system_(system), engine_(reference::toEngine(system)) { read(); }

  bool read() {
    reference::copyTo(*engine_, system_);
    const SystemArrays arrays = reference::arraysOf(*engine_);
    const bool actionsChanged = actions_.read(arrays.numTypes, arrays.rules);
    const bool energiesChanged = energies_.read(arrays.rules);
    few_->compute();
    return actionsChanged || energiesChanged;
  }

  /// Compares every flip to a given type at every neighbourhood; returns how many draws are accepted by some
  /// and rejected by others of them.
  int compareAll() {
    int undecided = 0;
    for (std::uint32_t code = 0; code < 256; ++code) {
      surround(code);
      for (Type current = 0; current < 2; ++current) {
        system_.lattice[1][1] = static_cast<int>(current);
        for (std::uint32_t k = 0; k < actions_.length(current); ++k) {
          const Action& action = actions_.row(current)[k];
          const int rule = system_.accessible[current][k];
          if (!action.flipsToGivenType()) continue;
          const std::uint32_t accepted = few_->numAccepted(action, current, neighbours_);
          EXPECT_LE(accepted, kDraws);
          EXPECT_TRUE(accepted == 0 || accepts(rule, action.finalType, accepted - 1))
              << "code " << code << ", rule " << rule << ", type " << current;
          EXPECT_TRUE(accepted == kDraws || !accepts(rule, action.finalType, accepted))
              << "code " << code << ", rule " << rule << ", type " << current;
          if (accepted > 0 && accepted < kDraws) ++undecided;
        }
      }
    }
    return undecided;
  }

  const FewTypes<2>& few() const { return *few_; }
  const ActionTable& actions() const { return actions_; }

 private:
  static constexpr std::uint32_t kDraws = 1u << 31;

  void surround(std::uint32_t code) {
    for (int dir = 1; dir <= kNumDirections; ++dir) {
      const Type type = code >> (dir - 1) & 1;
      neighbours_.type[dir - 1] = type;
      system_.lattice[reference::fn_neighbi(1, dir)][reference::fn_neighbj(1, dir)] = static_cast<int>(type);
    }
  }

  /// Whether a whole draw accepts the flip of the site in the middle, from the plain functions.
  bool accepts(int rule, int final, std::uint32_t draw) {
    const int current = system_.lattice[1][1], facType = system_.ruleFac[rule][1];
    int count = 0;
    for (int type = 0; type < 2; ++type)
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
  std::unique_ptr<FewTypes<2>> few_ = std::make_unique<FewTypes<2>>(actions_, energies_);
  Neighbours neighbours_ = {};
};

TEST(FewTypes, AcceptExactlyTheDrawsOfSingleAttemptsAtEveryNeighbourhood) {
  const auto system = twoTypes();
  EXPECT_GT(Tables(*system).compareAll(), 1000);
}

TEST(FewTypes, AcceptExactlyTheDrawsOfSingleAttemptsForAnyParameter) {
  const auto system = twoTypes();
  for (const double parameter : {0.0, -0.0, 1.0, 0.5, 1.5, 3e9, -0.3, 1.0 / 2147483648.0, 1e-10, 1e-310,
                                 1.0 - 1e-16, kInfinity, -kInfinity, kNotANumber}) {
    SCOPED_TRACE(parameter);
    for (double& each : system->ruleParameter) each = parameter;
    Tables(*system).compareAll();
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
      Tables(*system).compareAll();
      system->field[place.first] = energy;
      Tables(*system).compareAll();
    }
}

TEST(FewTypes, CountAMasqueradeAsItsType) {
  const auto system = twoTypes();
  for (const auto& [of0, of1] : {std::pair(-1, -1), {1, -1}, {-1, 0}, {1, 0}, {0, 1}}) {
    system->masquerade[0] = of0;
    system->masquerade[1] = of1;
    Tables(*system).compareAll();
  }
}

TEST(FewTypes, HaveTheBondEnergyOfEveryNeighbourhood) {
  const auto system = twoTypes();
  system->J[0][1] = 1e16;
  const Tables tables(*system);
  for (std::uint32_t code = 0; code < 256; ++code) {
    const Neighbours neighbours = NeighbourhoodCode<2>::neighboursOf(code);
    ASSERT_EQ(NeighbourhoodCode<2>::of(neighbours), code);
    for (Type type = 0; type < 2; ++type)
      ASSERT_EQ(tables.few().bondsAt(type, code), tables.few().bonds(type, neighbours));
    for (std::size_t dir = 0; dir < kNumDirections; ++dir) {
      Neighbours changed = neighbours;
      changed.type[dir] = 1 - changed.type[dir];
      ASSERT_EQ(NeighbourhoodCode<2>::withChange(code, dir, neighbours.type[dir], changed.type[dir]),
                NeighbourhoodCode<2>::of(changed));
    }
  }
}

TEST(FewTypes, AreReadAnewAfterAnyChange) {
  const auto system = twoTypes();
  Tables tables(*system);
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
