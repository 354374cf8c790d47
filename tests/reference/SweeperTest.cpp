#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "OtherPlatform.h"
#include "engine/Sweeper.h"
#include "engine/f_ran0.h"
#include "reference/Cases.h"
#include "reference/Lockstep.h"
#include "reference/Trace.h"

namespace quorvane {
namespace {

using reference::EngineSystem;
using reference::Size;
using reference::System;

constexpr std::int32_t kGoing = 2;

/// A sweeper and the plain functions on two copies of one system, with the same draws.
class Swept {
 public:
  explicit Swept(std::unique_ptr<System> system)
      : plain_(std::move(system)),
        engine_(reference::toEngine(*plain_)),
        sweeper_(reference::arraysOf(*engine_)) {}

  void sweep() {
    reference::sweep(*plain_);
    sweeper_.sweep(state_, kGoing);
  }

  /// Copies another system into both sides, as edits would.
  void become(const System& other) {
    *plain_ = other;
    reference::copyTo(*engine_, other);
  }

  std::string difference() const {
    if (!reference::sourcesAgree()) return "another number of draws";
    for (int i = 0; i < 256; ++i)
      for (int j = 0; j < 256; ++j)
        if (plain_->lattice[i][j] != engine_->lattice[i][j])
          return "another type at (" + std::to_string(i) + ", " + std::to_string(j) + ")";
    return {};
  }

  const System& plain() const { return *plain_; }
  EngineSystem& engine() { return *engine_; }
  Sweeper& sweeper() { return sweeper_; }

 private:
  std::unique_ptr<System> plain_;
  std::unique_ptr<EngineSystem> engine_;
  Sweeper sweeper_;
  Relaxed<std::int32_t> state_ = kGoing;
};

class SweptTables : public testing::TestWithParam<Size> {};

TEST_P(SweptTables, EqualTheReferenceOnRandomRuleTables) {
  const Size size = GetParam();
  const int sites = size.imax * size.jmax;
  const std::uint64_t tables = sites > 5000 ? 60 : 300;
  const int sweeps = sites > 500 ? 1 : 1 + 500 / sites;
  int active = 0;
  for (std::uint64_t seed = 0; seed < tables; ++seed) {
    SCOPED_TRACE("table " + std::to_string(seed));
    reference::restartSources(1 + static_cast<int>(seed * 29 % 101));
    Swept both(reference::randomSystem(size, 5000 + seed));
    const auto before = std::make_unique<System>(both.plain());
    for (int k = 0; k < sweeps; ++k) both.sweep();
    ASSERT_EQ(both.difference(), "");
    const auto* first = &before->lattice[0][0];
    if (!std::equal(first, first + 256 * 256, &both.plain().lattice[0][0])) ++active;
  }
  // The comparison would be weak if the tables changed nothing. On a single site few can.
  EXPECT_GE(active, 10);
}

INSTANTIATE_TEST_SUITE_P(Sizes, SweptTables, testing::ValuesIn(reference::awkwardSizes()),
                         [](const auto& size) {
                           return std::to_string(size.param.imax) + "by" + std::to_string(size.param.jmax);
                         });

TEST(Sweeper, UsesEveryChangeMadeBetweenSweeps) {
  reference::restartSources();
  Swept both(reference::randomSystem({13, 11}, 1));
  for (std::uint64_t seed = 0; seed < 400; ++seed) {
    // Rules, energies, flags, types and the size change between sweeps of one sweeper, over wide and narrow
    // sizes.
    const auto sizes = reference::awkwardSizes();
    both.become(*reference::randomSystem(sizes[seed * 7 % 22], 9000 + seed));
    both.sweep();
    both.sweep();
    ASSERT_EQ(both.difference(), "") << "change " << seed;
  }
}

/// After this many attempts with the same rules a sweeper uses tables by neighbourhood.
int attemptsBeforeTables(int numTypes) { return numTypes == 2 ? 2 * 4096 : 110'000; }

void sweepToTables(Swept& both) {
  const int attempts = attemptsBeforeTables(both.plain().numTypes) + 4096;
  for (int made = 0; made < attempts; made += both.plain().imax * both.plain().jmax + 1) both.sweep();
}

/// Random systems of so many types, of which a few also hold types that are not in use.
std::unique_ptr<System> nextOf(int numTypes, Size size, std::uint64_t& seed) {
  for (;;)
    if (auto system = reference::randomSystem(size, ++seed); system->numTypes == numTypes) return system;
}

/// Compares with the tables of a number of types, also after changes of all rules.
void compareWithTables(int numTypes, int changes) {
  std::uint64_t seed = 70'000;
  // All sizes have enough sites for compiled rules.
  for (const Size size : {Size{3, 256}, Size{4, 64}, Size{13, 11}}) {
    reference::restartSources();
    Swept both(nextOf(numTypes, size, seed));
    for (int change = 0; change < changes; ++change) {
      sweepToTables(both);
      ASSERT_EQ(both.difference(), "") << "system " << seed;
      both.become(*nextOf(numTypes, size, seed));
    }
  }
}

TEST(Sweeper, EqualsTheReferenceWithTheTablesOfTwoTypesAndAfterEachChangeOfTheRules) {
  compareWithTables(2, 60);
}

TEST(Sweeper, EqualsTheReferenceWithTheTablesOfThreeTypesAndAfterEachChangeOfTheRules) {
  compareWithTables(3, 30);
}

TEST(Sweeper, RejectsADrawThatEqualsTheProbabilityInTheTablesOfTwoTypes) {
  for (int attempt = 5000; attempt < 5010; ++attempt) {
    // Every attempt makes four draws, the last for its acceptance.
    RandomSource source;
    source.next();
    for (int k = 0; k < 4 * attempt + 3; ++k) source.next();
    const double probability = source.next() / RandomSource::maxran;

    reference::restartSources();
    auto system = std::make_unique<System>();
    system->imax = system->jmax = 20;
    system->numTypes = 2;
    const int rule = reference::addRule(*system, 1, 0, 1);
    system->ruleParameter[rule] = probability;
    Swept both(std::move(system));
    for (int k = 0; k < 15; ++k) both.sweep();
    ASSERT_EQ(both.difference(), "") << "attempt " << attempt << ", probability " << probability;
  }
}

TEST(Sweeper, UsesAChangedEnergyOrParameterAfterTheTablesHaveBeenMade) {
  for (const auto& typical : reference::typicalCases().subspan(1, 4)) {
    reference::restartSources();
    auto system = typical.make();
    ASSERT_LE(system->numTypes, 3);
    system->imax = system->jmax = 20;
    Swept both(std::move(system));
    for (int change = 0; change < 6; ++change) {
      sweepToTables(both);
      ASSERT_EQ(both.difference(), "") << typical.name << ", change " << change;
      const auto changed = std::make_unique<System>(both.plain());
      if (change % 2 == 0)
        changed->J[0][1] = changed->J[1][0] = 0.2 + 0.1 * change;
      else
        for (double& parameter : changed->ruleParameter) parameter = 0.9 - 0.1 * change;
      both.become(*changed);
    }
  }
}

TEST(Sweeper, EqualsTheReferenceWithMoreEnergyDifferencesThanTheCacheHolds) {
  // Few differences in each sweep, more over all of them than the cache holds.
  reference::restartSources();
  const auto cases = reference::typicalCases();
  auto system = cases[1].make();
  system->imax = system->jmax = 40;
  Swept both(std::make_unique<System>(*system));
  for (int k = 0; k < 200; ++k) {
    system = std::make_unique<System>(both.plain());
    system->J[0][1] = system->J[1][0] = 0.3 + 0.001 * k;
    both.become(*system);
    both.sweep();
    ASSERT_EQ(both.difference(), "") << "energy " << k;
  }
}

TEST(Sweeper, MakesNoAttemptUnlessTheStateIsRunning) {
  reference::restartSources();
  Swept both(reference::randomSystem({13, 11}, 1));
  const Relaxed<std::int32_t> stopped = 1;
  both.sweeper().sweep(stopped, kGoing);
  EXPECT_EQ(both.difference(), "");
}

TEST(Sweeper, ReadsTheStateBeforeEveryAttempt) {
  // A site is the state, so the sweep ends with the attempt that flips it.
  reference::restartSources();
  auto system = std::make_unique<System>();
  system->imax = system->jmax = 10;
  system->numTypes = 2;
  const int rule = reference::addRule(*system, 0, 0, 1);
  system->ruleIgnoreEnergy[rule] = 1;
  Swept both(std::move(system));
  const auto plain = std::make_unique<System>(both.plain());
  both.sweeper().sweep(both.engine().lattice[4][7], 0);
  int attempts = 0;
  for (; plain->lattice[4][7] == 0; ++attempts) reference::attempt(*plain);
  EXPECT_TRUE(reference::sourcesAgree());
  EXPECT_GT(attempts, 1);
  EXPECT_LT(attempts, 101);
}

TEST(Sweeper, WithoutALatticeDrawsTheSiteOfOneAttempt) {
  reference::restartSources();
  Swept both(reference::randomSystem({13, 11}, 1));
  const Relaxed<std::int32_t> going = kGoing;
  both.engine().imax = both.engine().jmax = 0;
  both.sweeper().sweep(going, kGoing);
  RandomSource expected;
  expected.next();
  for (int k = 0; k < 2; ++k) expected.next();
  EXPECT_EQ(processRandomSource.next(), expected.next());
}

TEST(Sweeper, DrawsFromAnotherPlatformsGeneratorAsSingleAttemptsDo) {
  const auto startFromOther = [] {
    using Other = OtherPlatform<31>;
    processRandomSource = RandomSource({&Other::srand, &Other::rand});
  };
  const auto plain = reference::randomSystem({13, 11}, 12);
  const auto swept = reference::toEngine(*plain);
  startFromOther();
  Sweeper sweeper(reference::arraysOf(*swept));
  const Relaxed<std::int32_t> going = kGoing;
  for (int k = 0; k < 20; ++k) sweeper.sweep(going, kGoing);
  const double next = fRandReal();
  ASSERT_FALSE(processRandomSource.drawsItself());

  const auto single = reference::toEngine(*plain);
  startFromOther();
  for (int k = 0; k < 20 * (13 * 11 + 1); ++k) reference::attempt(*single);
  EXPECT_EQ(next, fRandReal());
  for (int i = 0; i < 13; ++i)
    for (int j = 0; j < 11; ++j) ASSERT_EQ(swept->lattice[i][j], single->lattice[i][j]);
  reference::restartSources();
}

}  // namespace
}  // namespace quorvane
