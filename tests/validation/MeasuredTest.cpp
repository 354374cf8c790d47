#include <algorithm>
#include <cmath>
#include <functional>
#include <random>
#include <string>

#include "Figures.h"
#include "IsingStates.h"
#include "MeasuredTable.h"

// What quorvane-batch measures, by its options alone.

namespace quorvane::validation {
namespace {

class Measured : public ValidationTest {};

std::string sides(int L) { return std::to_string(L) + "x" + std::to_string(L); }
std::string sidesInWords(int L) { return std::to_string(L) + " × " + std::to_string(L); }

void expectEnergiesOf(int L, double K,
                      const std::function<void(const Blocks&, const EnergyMoments&)>& compare) {
  constexpr int start = 1000, sweeps = 1'000'000;
  const MeasuredTable table(
      {"--seed", "1", "--set", "rule Unlike spins repel parameter=" + std::to_string(4 * K), "--remake",
       sides(L), "--sweeps", std::to_string(start + sweeps), "--observables", "energy"});
  Blocks blocks(2, sweeps / 100);
  for (std::size_t row = start + 1; row < table.numRows(); ++row) {
    const double energy = table.at(row, "energy");
    blocks.sample({energy, energy * energy});
  }
  compare(blocks, energyMoments(isingStates(L), K));
}

Estimate perSite(const Estimate& estimate, int L) {
  return {estimate.value / (L * L), estimate.error / (L * L)};
}

TEST_F(Measured, EnergiesOfIsingLatticesAreThoseOfAllStates) {
  constexpr double K = 0.19;
  for (const int L : {4, 6})
    expectEnergiesOf(L, K, [&](const Blocks& blocks, const EnergyMoments& exact) {
      for (const int observable : {0, 1}) expectLongBlocks(blocks, observable);
      const double sites = L * L;
      const std::string lattice = sidesInWords(L);
      const Estimate energy = perSite(blocks.mean(0), L);
      const Estimate heat = perSite(
          blocks.functionOfMeans([](Blocks::Means means) { return means[1] - means[0] * means[0]; }), L);
      expectAgreement(lattice + ": mean energy per site", energy, exact.mean / sites);
      expectAgreement(lattice + ": specific heat per site", heat, exact.variance / sites);
      const auto ofLargerCoupling = [&](double factor) { return energyMoments(isingStates(L), factor * K); };
      expectRejection(lattice + ": mean energy per site for K larger by 1 %", energy,
                      ofLargerCoupling(1.01).mean / sites);
      expectRejection(lattice + ": specific heat per site for K larger by 3 %", heat,
                      ofLargerCoupling(1.03).variance / sites);
    });
}

/// A lattice of L by L sites that are occupied or not.
struct Occupied {
  int L;
  std::vector<char> sites;

  char& at(int i, int j) { return sites[static_cast<std::size_t>((i + L) % L * L + (j + L) % L)]; }
};

/// Empties the cluster of a site, by a stack of sites to visit, and gives its size.
int emptied(Occupied& lattice, int i, int j, bool acrossCorners) {
  std::vector<std::pair<int, int>> toVisit;
  int size = 0;
  const auto visit = [&](int x, int y) {
    if (lattice.at(x, y) == 0) return;
    lattice.at(x, y) = 0;
    ++size;
    toVisit.emplace_back((x + lattice.L) % lattice.L, (y + lattice.L) % lattice.L);
  };
  for (visit(i, j); !toVisit.empty();) {
    const auto [x, y] = toVisit.back();
    toVisit.pop_back();
    for (int dx = -1; dx <= 1; ++dx)
      for (int dy = -1; dy <= 1; ++dy)
        if (acrossCorners || dx == 0 || dy == 0) visit(x + dx, y + dy);
  }
  return size;
}

struct FoundClusters {
  int largest = 0, number = 0;
};

FoundClusters clustersIn(Occupied lattice, bool acrossCorners = true) {
  FoundClusters found;
  for (int i = 0; i < lattice.L; ++i)
    for (int j = 0; j < lattice.L; ++j)
      if (const int size = emptied(lattice, i, j, acrossCorners); size > 0) {
        found.largest = std::max(found.largest, size);
        ++found.number;
      }
  return found;
}

struct ExactClusters {
  double largest = 0.0, number = 0.0;
};

/// Means over all ways to occupy 4 by 4 sites.
ExactClusters clustersOfAllStates(bool acrossCorners) {
  constexpr int L = 4, states = 1 << (L * L);
  ExactClusters means;
  for (int state = 0; state < states; ++state) {
    Occupied lattice{L, std::vector<char>(L * L)};
    for (std::size_t site = 0; site < lattice.sites.size(); ++site)
      lattice.sites[site] = static_cast<char>(state >> site & 1);
    const FoundClusters found = clustersIn(lattice, acrossCorners);
    means.largest += static_cast<double>(found.largest) / states;
    means.number += static_cast<double>(found.number) / states;
  }
  return means;
}

/// Rows of a lattice whose sites flip freely; after four sweeps one remembers exp(-8) of its state.
MeasuredTable rowsOfFreeSites(int L, int rows, const std::string& observables) {
  constexpr int every = 4;
  return MeasuredTable({"--set", "rule Unlike spins repel parameter=0", "--remake", sides(L), "--sweeps",
                        std::to_string(rows * every), "--every", std::to_string(every), "--observables",
                        observables});
}

TEST_F(Measured, ClustersOfAHalfFilledLatticeAreThoseOfAllStates) {
  constexpr int L = 4, rows = 200'000;
  const MeasuredTable table = rowsOfFreeSites(L, rows, "clusters");
  Blocks blocks(2, rows / 100);
  for (std::size_t row = 1; row < table.numRows(); ++row)
    blocks.sample({table.at(row, "largest_0"), table.at(row, "clusters_0")});
  for (const int observable : {0, 1}) expectLongBlocks(blocks, observable);
  const ExactClusters exact = clustersOfAllStates(true), withoutCorners = clustersOfAllStates(false);
  expectAgreement("4 × 4, half filled: sites of the largest cluster", blocks.mean(0), exact.largest);
  expectAgreement("4 × 4, half filled: number of clusters", blocks.mean(1), exact.number);
  expectRejection("4 × 4, half filled: sites of the largest cluster without corners", blocks.mean(0),
                  withoutCorners.largest);
}

/// One row for each seed, of a random lattice with a share of type 0.
template <typename Use>
void forFilledLattices(int L, const std::string& fill, int seeds, const Use& use) {
  for (int seed = 1; seed <= seeds; ++seed) {
    const MeasuredTable table({"--seed", std::to_string(seed), "--remake", sides(L), "--fill", fill,
                               "--sweeps", "0", "--observables", "clusters"});
    use(table);
  }
}

TEST_F(Measured, LargestClusterOfAFilledLatticeIsThatOfOtherDraws) {
  constexpr int L = 64, seeds = 500, others = 5000;
  Blocks measured(1, seeds / 100), computed(1, others / 100);
  forFilledLattices(L, "#0=0.5,#1=0.5", seeds,
                    [&](const MeasuredTable& table) { measured.sample({table.at(0, "largest_0")}); });
  std::mt19937_64 draws;
  for (int k = 0; k < others; ++k) {
    Occupied lattice{L, std::vector<char>(L * L)};
    for (char& site : lattice.sites) site = static_cast<char>(draws() >> 63);
    computed.sample({static_cast<double>(clustersIn(lattice).largest)});
  }
  const Estimate largest = measured.mean(0), expected = computed.mean(0);
  const Estimate both{largest.value, std::hypot(largest.error, expected.error)};
  expectAgreement("64 × 64, half filled: sites of the largest cluster", both, expected.value);
  expectRejection("64 × 64, half filled: all occupied sites", both, L * L / 2.0);
}

TEST_F(Measured, ClustersCloseAroundTheLatticeAsOftenAsAtTheThreshold) {
  constexpr int L = 64, seeds = 1000;
  std::int64_t around = 0, aroundBoth = 0;
  forFilledLattices(L, "#0=0.40725395,#1=0.59274605", seeds, [&](const MeasuredTable& table) {
    const double wraps = table.at(0, "wraps_0");
    around += wraps > 0 ? 1 : 0;
    aroundBoth += wraps > 2 ? 1 : 0;
  });
  constexpr double either = 0.690473725, both = 0.351642855;
  const std::string lattice = "64 × 64, at the threshold: ";
  expectAgreement(lattice + "closed in one direction or both", share(around, seeds, either), either);
  expectAgreement(lattice + "closed in both directions", share(aroundBoth, seeds, both), both);
  const double one = (either + both) / 2;
  expectRejection(lattice + "if only one of the directions were seen", share(around, seeds, one), one);
}

TEST_F(Measured, CorrelationsOfFreeSitesAreThoseOfTheirCommonMean) {
  constexpr int L = 16, rows = 50'000, distances = L / 2;
  const MeasuredTable table = rowsOfFreeSites(L, rows, "correlation");
  Blocks blocks(distances, rows / 100);
  for (std::size_t row = 1; row < table.numRows(); ++row) {
    for (int r = 1; r <= distances; ++r) blocks.add(r - 1, table.at(row, "c_0_" + std::to_string(r)));
    blocks.next();
  }
  constexpr double expected = -1.0 / (4.0 * L * L);
  double largest = 0.0;
  for (int r = 1; r <= distances; ++r) {
    expectLongBlocks(blocks, r - 1);
    const double z = deviation(blocks.mean(r - 1), expected);
    if (std::abs(z) > std::abs(largest)) largest = z;
  }
  expectAgreement("16 × 16, free sites: each of C(1), …, C(8)", "−1/(4 N)", "8 means", largest);
  expectAgreement("16 × 16, free sites: C(1)", blocks.mean(0), expected);
  expectRejection("16 × 16, free sites: C(1) if the mean of each lattice were exactly 1/2", blocks.mean(0),
                  0.0);
}

}  // namespace
}  // namespace quorvane::validation
