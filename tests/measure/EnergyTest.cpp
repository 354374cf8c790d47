#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <random>

#include "MeasureSupport.h"
#include "engine/f_LMlattice.h"

namespace quorvane {
namespace {

double energyOf(const Snapshot& lattice) { return NamedRow("energy", lattice).real("energy"); }

/// The arrays of the engine, which hold more than fits on a stack.
struct EngineSystem {
  Lattice lattice;
  PairEnergies J;
};

std::unique_ptr<EngineSystem> engineSystem(const Snapshot& snapshot) {
  auto system = std::make_unique<EngineSystem>();
  for (int i = 0; i < snapshot.imax; ++i)
    for (int j = 0; j < snapshot.jmax; ++j) system->lattice[i][j] = typeAt(snapshot, i, j);
  for (std::size_t a = 0; a < kMaxPixelTypes; ++a)
    for (std::size_t b = 0; b < kMaxPixelTypes; ++b) system->J[a][b] = snapshot.pairEnergies[a][b];
  return system;
}

TEST(Energy, IsHalfOfEachPairAndTheFieldOfEachSite) {
  Snapshot lattice = emptyLattice(5, 6, 2);
  setType(lattice, 2, 2, 1);
  lattice.pairEnergies[0][0] = -1.0;
  lattice.pairEnergies[0][1] = lattice.pairEnergies[1][0] = 3.0;
  lattice.pairEnergies[1][1] = 100.0;
  lattice.fields[0] = 0.25;
  lattice.fields[1] = 10.0;
  EXPECT_EQ(energyOf(lattice), 0.5 * (-1.0 * 112 + 3.0 * 8) + 0.25 * 29 + 10.0);
}

// The guide's lattice of 3 x 3 sites, where n (9 - n) of the 36 pairs are unlike.
TEST(Energy, OfNineSitesWhereAllAreNeighbours) {
  Snapshot lattice = latticeOf({"011", "000", "100"}, 2);
  lattice.pairEnergies[0][1] = lattice.pairEnergies[1][0] = 0.5;
  EXPECT_EQ(energyOf(lattice), 0.25 * 3 * 6);
}

TEST(Energy, IsTheSumOfTheEnginesSiteEnergiesHalvedOnWideLattices) {
  for (const Snapshot& lattice : randomLattices()) {
    if (lattice.imax < 2 || lattice.jmax < 2) continue;
    const auto system = engineSystem(lattice);
    double sum = 0.0;
    for (int i = 0; i < lattice.imax; ++i)
      for (int j = 0; j < lattice.jmax; ++j)
        sum += 0.5 * fSiteNNEnergyLM(i, j, lattice.imax, lattice.jmax, system->lattice, system->J, -1) +
               lattice.fields[static_cast<std::size_t>(typeAt(lattice, i, j))];
    EXPECT_NEAR(energyOf(lattice), sum, 1e-9) << describe(lattice);
  }
}

TEST(Energy, ChangesByTheEnergyDifferenceOfAFlipOnEveryLattice) {
  std::mt19937 source(7);
  for (Snapshot lattice : randomLattices()) {
    const auto below = [&](int n) { return static_cast<int>(source() % static_cast<unsigned>(n)); };
    for (int attempt = 0; attempt < 10; ++attempt) {
      const auto system = engineSystem(lattice);
      const int i = below(lattice.imax), j = below(lattice.jmax), to = below(lattice.numTypes);
      const int from = typeAt(lattice, i, j);
      const auto siteEnergy = [&](int type) {
        return fSiteNNEnergyLM(i, j, lattice.imax, lattice.jmax, system->lattice, system->J, type) +
               lattice.fields[static_cast<std::size_t>(type)];
      };
      const double difference = siteEnergy(to) - siteEnergy(from);
      const double before = energyOf(lattice);
      setType(lattice, i, j, to);
      EXPECT_NEAR(energyOf(lattice) - before, difference, 1e-9) << describe(lattice);
    }
  }
}

TEST(Energy, DoesNotDependOnWhereTheSitesAre) {
  Snapshot lattice = randomLattice(12, 16, 3, 5);
  const double energy = energyOf(lattice);
  for (int shift = 1; shift < 4; ++shift) {
    Snapshot shifted = lattice;
    for (int i = 0; i < lattice.imax; ++i)
      for (int j = 0; j < lattice.jmax; ++j)
        setType(shifted, i, j, typeAt(lattice, i + shift, j - 5 * shift));
    EXPECT_EQ(energyOf(shifted), energy);
  }
}

TEST(Energy, OfTypesThatAreNotInUseIsThatOfTheTables) {
  Snapshot lattice = emptyLattice(4, 4, 2);
  setType(lattice, 1, 1, 9);
  lattice.pairEnergies[0][9] = lattice.pairEnergies[9][0] = 2.0;
  lattice.fields[9] = 0.5;
  EXPECT_EQ(energyOf(lattice), 0.5 * 8 * 2.0 + 0.5);
}

TEST(Energy, LeavesOutInfiniteEnergiesOfPairsThatAreNotThere) {
  Snapshot lattice = emptyLattice(4, 4, 2);
  constexpr double infinity = std::numeric_limits<double>::infinity();
  lattice.pairEnergies[0][1] = lattice.pairEnergies[1][0] = infinity;
  lattice.pairEnergies[1][1] = -infinity;
  EXPECT_EQ(energyOf(lattice), 0.0);
  setType(lattice, 0, 0, 1);
  EXPECT_EQ(energyOf(lattice), infinity);
}

}  // namespace
}  // namespace quorvane
