#include <gtest/gtest.h>

#include <cmath>
#include <deque>
#include <numeric>
#include <utility>

#include "MeasureSupport.h"

namespace quorvane {
namespace {

struct Figures {
  std::int64_t clusters = 0, largest = 0, wraps = 0;
  double mean = 0.0;
};

Figures figuresOf(const NamedRow& row, int type) {
  const std::string suffix = "_" + std::to_string(type);
  return {.clusters = row.number("clusters" + suffix),
          .largest = row.number("largest" + suffix),
          .wraps = row.number("wraps" + suffix),
          .mean = row.real("mean" + suffix)};
}

Figures figuresOf(const std::vector<std::string>& columns, int type) {
  return figuresOf(NamedRow("clusters", latticeOf(columns, 2)), type);
}

/// A cluster by a flood of its sites, each with the displacement by which it was reached first. A site that
/// is reached again by another displacement closes a path around the lattice.
struct Flood {
  Flood(const Snapshot& snapshot, std::vector<bool>& done, int i, int j) : lattice(snapshot) {
    visit(i, j);
    for (; !queue.empty(); queue.pop_front()) {
      const auto [x, y] = queue.front();
      done[at(x, y)] = true;
      ++sites;
      for (int di = -1; di <= 1; ++di)
        for (int dj = -1; dj <= 1; ++dj)
          if (typeAt(lattice, x + di, y + dj) == typeAt(lattice, x, y)) visit(x + di, y + dj);
    }
  }

  std::size_t at(int i, int j) const {
    const auto wrap = [](int x, int n) { return (x % n + n) % n; };
    return siteIndex(lattice, wrap(i, lattice.imax), wrap(j, lattice.jmax));
  }

  void visit(int i, int j) {
    const auto [known, isNew] = reached.try_emplace(at(i, j), i, j);
    if (isNew) queue.emplace_back(i, j);
    if (known->second.first != i) wraps |= 1;
    if (known->second.second != j) wraps |= 2;
  }

  const Snapshot& lattice;
  std::map<std::size_t, std::pair<int, int>> reached;
  std::deque<std::pair<int, int>> queue;
  std::int64_t sites = 0;
  int wraps = 0;
};

std::vector<Figures> flooded(const Snapshot& lattice) {
  std::vector<Figures> all(kMaxPixelTypes);
  std::vector<double> sites(kMaxPixelTypes), squares(kMaxPixelTypes);
  std::vector<bool> done(lattice.sites.size());
  for (int i = 0; i < lattice.imax; ++i)
    for (int j = 0; j < lattice.jmax; ++j) {
      if (done[siteIndex(lattice, i, j)]) continue;
      const Flood flood(lattice, done, i, j);
      const auto type = static_cast<std::size_t>(typeAt(lattice, i, j));
      Figures& figures = all[type];
      ++figures.clusters;
      figures.largest = std::max(figures.largest, flood.sites);
      figures.wraps |= flood.wraps;
      sites[type] += static_cast<double>(flood.sites);
      squares[type] += static_cast<double>(flood.sites * flood.sites);
      figures.mean = squares[type] / sites[type];
    }
  return all;
}

void expectAsFlooded(const Snapshot& lattice) {
  const NamedRow row("clusters", lattice);
  const auto expected = flooded(lattice);
  for (int t = 0; t < lattice.numTypes; ++t) {
    const Figures found = figuresOf(row, t);
    const Figures& wanted = expected[static_cast<std::size_t>(t)];
    EXPECT_EQ(found.clusters, wanted.clusters) << describe(lattice) << ", type " << t;
    EXPECT_EQ(found.largest, wanted.largest) << describe(lattice) << ", type " << t;
    EXPECT_EQ(found.wraps, wanted.wraps) << describe(lattice) << ", type " << t;
    if (wanted.clusters == 0)
      EXPECT_TRUE(std::isnan(found.mean)) << describe(lattice) << ", type " << t;
    else
      EXPECT_EQ(found.mean, wanted.mean) << describe(lattice) << ", type " << t;
  }
}

TEST(Clusters, AreThoseOfAFloodOnRandomLattices) {
  for (const Snapshot& lattice : randomLattices()) expectAsFlooded(lattice);
}

// At shares around those where clusters first close around the lattice.
TEST(Clusters, AreThoseOfAFloodOnLatticesOfManyShares) {
  for (int share = 5; share < 100; share += 5)
    for (unsigned seed = 0; seed < 8; ++seed)
      for (const auto& [imax, jmax] : {std::pair{1, 9}, {2, 6}, {6, 2}, {5, 5}, {3, 11}, {13, 4}, {17, 16}}) {
        Snapshot lattice = randomLattice(imax, jmax, 10, seed);
        const Snapshot second = randomLattice(imax, jmax, 10, seed + 100);
        for (std::size_t k = 0; k < lattice.sites.size(); ++k)
          lattice.sites[k] = lattice.sites[k] * 10 + second.sites[k] < share ? 1 : 0;
        lattice.numTypes = 2;
        lattice.names.resize(2);
        expectAsFlooded(lattice);
      }
}

// Long winding paths, whose labels are joined over and over and whose displacements grow.
TEST(Clusters, AreThoseOfAFloodOnSpirals) {
  for (int imax = 3; imax < 20; ++imax)
    for (int jmax = 3; jmax < 20; ++jmax)
      for (int pitch = 2; pitch < 5; ++pitch) {
        Snapshot lattice = emptyLattice(imax, jmax, 2);
        for (int i = 0; i < imax; ++i)
          for (int j = 0; j < jmax; ++j) setType(lattice, i, j, (i + pitch * j) % 4 == 0 ? 1 : 0);
        expectAsFlooded(lattice);
      }
}

TEST(Clusters, OfAFullLatticeAreOneThatClosesBothWays) {
  const NamedRow row("clusters", emptyLattice(6, 9, 2));
  const Figures full = figuresOf(row, 0), none = figuresOf(row, 1);
  EXPECT_EQ(full.clusters, 1);
  EXPECT_EQ(full.largest, 54);
  EXPECT_EQ(full.mean, 54.0);
  EXPECT_EQ(full.wraps, 3);
  EXPECT_EQ(none.clusters, 0);
  EXPECT_EQ(none.largest, 0);
  EXPECT_TRUE(std::isnan(none.mean));
  EXPECT_EQ(none.wraps, 0);
}

TEST(Clusters, OfACheckerboardAreConnectedAcrossCorners) {
  for (const int type : {0, 1}) {
    const Figures figures = figuresOf({"0101", "1010", "0101", "1010"}, type);
    EXPECT_EQ(figures.clusters, 1);
    EXPECT_EQ(figures.largest, 8);
    EXPECT_EQ(figures.wraps, 3);
  }
}

TEST(Clusters, OfASingleSiteDoNotClose) {
  const Figures figures = figuresOf({"1000", "0000", "0000"}, 1);
  EXPECT_EQ(figures.clusters, 1);
  EXPECT_EQ(figures.largest, 1);
  EXPECT_EQ(figures.mean, 1.0);
  EXPECT_EQ(figures.wraps, 0);
}

TEST(Clusters, OfStripesCloseAlongThem) {
  EXPECT_EQ(figuresOf({"0011", "0011", "0011"}, 1).wraps, 1);
  EXPECT_EQ(figuresOf({"0011", "0011", "0011"}, 0).wraps, 1);
  EXPECT_EQ(figuresOf({"1111", "0000", "0000", "0000"}, 1).wraps, 2);
  EXPECT_EQ(figuresOf({"1111", "0000", "1111", "0000"}, 1).clusters, 2);
}

TEST(Clusters, ThatGoRoundBothWaysInOnePathCloseAlongBoth) {
  const Figures figures = figuresOf({"10000", "01000", "00100", "00010", "00001"}, 1);
  EXPECT_EQ(figures.clusters, 1);
  EXPECT_EQ(figures.wraps, 3);
}

TEST(Clusters, AreJoinedAcrossEdgesWithoutClosing) {
  const Figures figures = figuresOf({"10001", "00000", "00000", "10001"}, 1);
  EXPECT_EQ(figures.clusters, 1);
  EXPECT_EQ(figures.largest, 4);
  EXPECT_EQ(figures.wraps, 0);
}

TEST(Clusters, HaveTheMeanSizeOfTheClusterOfASite) {
  const Figures figures = figuresOf({"1100000", "1100100", "0000000", "0000000"}, 1);
  EXPECT_EQ(figures.clusters, 2);
  EXPECT_EQ(figures.largest, 4);
  EXPECT_EQ(figures.mean, 17.0 / 5.0);
}

// A site that is its own neighbour closes around the lattice, and so do two that are neighbours twice.
TEST(Clusters, CloseOnNarrowLatticesByTheirNeighbours) {
  EXPECT_EQ(figuresOf({"10000"}, 1).wraps, 1);
  EXPECT_EQ(figuresOf({"1", "0", "0"}, 1).wraps, 2);
  EXPECT_EQ(figuresOf({"1"}, 1).wraps, 3);
  EXPECT_EQ(figuresOf({"10000", "10000"}, 1).wraps, 1);
  EXPECT_EQ(figuresOf({"10000", "00000"}, 1).wraps, 0);
}

TEST(Clusters, LeaveOutSitesOfTypesThatAreNotInUse) {
  const Figures figures = figuresOf({"0199", "0199", "0199", "0199"}, 0);
  EXPECT_EQ(figures.clusters, 1);
  EXPECT_EQ(figures.largest, 4);
  EXPECT_EQ(figures.wraps, 1);
}

}  // namespace
}  // namespace quorvane
