#include <gtest/gtest.h>

#include "MeasureSupport.h"

namespace quorvane {
namespace {

std::string contactsColumn(int a, int b) {
  return "contacts_" + std::to_string(std::min(a, b)) + "_" + std::to_string(std::max(a, b));
}

std::int64_t allContacts(const NamedRow& row, int numTypes) {
  std::int64_t sum = 0;
  for (int a = 0; a < numTypes; ++a)
    for (int b = a; b < numTypes; ++b) sum += row.number(contactsColumn(a, b));
  return sum;
}

// Every pair is seen from both of its sites, in all eight directions.
TEST(Contacts, AreHalfOfWhatAllSitesSeeOnRandomLattices) {
  for (const Snapshot& lattice : randomLattices()) {
    std::map<std::string, std::int64_t> seen;
    for (int i = 0; i < lattice.imax; ++i)
      for (int j = 0; j < lattice.jmax; ++j)
        for (int di = -1; di <= 1; ++di)
          for (int dj = -1; dj <= 1; ++dj)
            if (di != 0 || dj != 0)
              ++seen[contactsColumn(typeAt(lattice, i, j), typeAt(lattice, i + di, j + dj))];
    const NamedRow row("contacts", lattice);
    for (int a = 0; a < lattice.numTypes; ++a)
      for (int b = a; b < lattice.numTypes; ++b)
        EXPECT_EQ(2 * row.number(contactsColumn(a, b)), seen[contactsColumn(a, b)]) << describe(lattice);
    EXPECT_EQ(allContacts(row, lattice.numTypes), 4 * lattice.numSites()) << describe(lattice);
  }
}

// By another route: all pairs of sites whose distances along both axes are at most 1, on lattices wide enough
// for a pair to be neighbours once.
TEST(Contacts, AreThePairsOfSitesAtADistanceOfOne) {
  for (const Snapshot& lattice : randomLattices()) {
    if (lattice.imax < 3 || lattice.jmax < 3) continue;
    std::map<std::string, std::int64_t> pairs;
    const int numSites = static_cast<int>(lattice.numSites());
    const auto near = [](int x, int y, int n) {
      const int distance = std::abs(x - y);
      return std::min(distance, n - distance) <= 1;
    };
    for (int p = 0; p < numSites; ++p)
      for (int q = p + 1; q < numSites; ++q) {
        const int i = p / lattice.jmax, j = p % lattice.jmax, k = q / lattice.jmax, l = q % lattice.jmax;
        if (near(i, k, lattice.imax) && near(j, l, lattice.jmax))
          ++pairs[contactsColumn(typeAt(lattice, i, j), typeAt(lattice, k, l))];
      }
    const NamedRow row("contacts", lattice);
    for (int a = 0; a < lattice.numTypes; ++a)
      for (int b = a; b < lattice.numTypes; ++b)
        EXPECT_EQ(row.number(contactsColumn(a, b)), pairs[contactsColumn(a, b)]) << describe(lattice);
  }
}

TEST(Contacts, OfASingleSiteAreItsEight) {
  Snapshot lattice = emptyLattice(5, 6, 2);
  setType(lattice, 4, 0, 1);
  const NamedRow row("contacts", lattice);
  EXPECT_EQ(row.number("contacts_0_1"), 8);
  EXPECT_EQ(row.number("contacts_1_1"), 0);
  EXPECT_EQ(row.number("contacts_0_0"), 4 * 30 - 8);
}

TEST(Contacts, OfACheckerboardAreEqualAcrossCorners) {
  const NamedRow row("contacts", latticeOf({"0101", "1010", "0101", "1010"}, 2));
  EXPECT_EQ(row.number("contacts_0_1"), 32);
  EXPECT_EQ(row.number("contacts_0_0"), 16);
  EXPECT_EQ(row.number("contacts_1_1"), 16);
}

TEST(Contacts, OfStripesAreThreeForEachSiteAtTheirEdges) {
  const NamedRow row("contacts", latticeOf({"000111", "000111", "000111", "000111"}, 2));
  EXPECT_EQ(row.number("contacts_0_1"), 2 * 4 * 3);
  EXPECT_EQ(row.number("contacts_0_0"), 4 * 12 - 12);
  EXPECT_EQ(row.number("contacts_1_1"), 4 * 12 - 12);
}

TEST(Contacts, OfOneSiteAloneAreFourWithItself) {
  EXPECT_EQ(NamedRow("contacts", emptyLattice(1, 1, 1)).number("contacts_0_0"), 4);
}

TEST(Contacts, OfTwoSitesInARowAreSixBetweenThemAndOneOfEachWithItself) {
  for (const auto& lattice : {latticeOf({"01"}, 2), latticeOf({"0", "1"}, 2)}) {
    const NamedRow row("contacts", lattice);
    EXPECT_EQ(row.number("contacts_0_1"), 6);
    EXPECT_EQ(row.number("contacts_0_0"), 1);
    EXPECT_EQ(row.number("contacts_1_1"), 1);
  }
}

TEST(Contacts, LeaveOutSitesOfTypesThatAreNotInUse) {
  Snapshot lattice = emptyLattice(4, 4, 2);
  setType(lattice, 1, 1, 9);
  const NamedRow row("contacts", lattice);
  EXPECT_EQ(row.number("contacts_0_0"), 4 * 16 - 8);
  EXPECT_EQ(row.number("contacts_0_1"), 0);
  EXPECT_EQ(row.number("contacts_1_1"), 0);
}

}  // namespace
}  // namespace quorvane
