#include <gtest/gtest.h>

#include "MeasureSupport.h"

namespace quorvane {
namespace {

TEST(Counts, AreTheSitesOfEachType) {
  const NamedRow row("counts", latticeOf({"0012", "0022"}, 3));
  EXPECT_EQ(row.number("count_0"), 4);
  EXPECT_EQ(row.number("count_1"), 1);
  EXPECT_EQ(row.number("count_2"), 3);
  EXPECT_EQ(row.size(), 3U);
}

TEST(Counts, AreThoseOfAWalkOverRandomLattices) {
  for (const Snapshot& lattice : randomLattices()) {
    std::vector<std::int64_t> expected(kMaxPixelTypes);
    for (int i = 0; i < lattice.imax; ++i)
      for (int j = 0; j < lattice.jmax; ++j) ++expected[static_cast<std::size_t>(typeAt(lattice, i, j))];
    const NamedRow row("counts", lattice);
    for (int t = 0; t < lattice.numTypes; ++t)
      EXPECT_EQ(row.number("count_" + std::to_string(t)), expected[static_cast<std::size_t>(t)])
          << describe(lattice);
  }
}

TEST(Counts, LeaveOutSitesOfTypesThatAreNotInUse) {
  const NamedRow row("counts", latticeOf({"0190", "0071"}, 2));
  EXPECT_EQ(row.number("count_0"), 4);
  EXPECT_EQ(row.number("count_1"), 2);
  EXPECT_EQ(row.size(), 2U);
}

TEST(Order, IsTheDifferenceOfTheSharesOfTwoTypes) {
  const Snapshot lattice = latticeOf({"0012", "0022"}, 3);
  EXPECT_EQ(NamedRow("order:0:1", lattice).real("order_0_1"), 3.0 / 8.0);
  EXPECT_EQ(NamedRow("order:1:0", lattice).real("order_1_0"), -3.0 / 8.0);
  EXPECT_EQ(NamedRow("order:2:1", lattice).real("order_2_1"), 2.0 / 8.0);
}

TEST(Order, CountsSitesOfTypesThatAreNotInUseAsSites) {
  EXPECT_EQ(NamedRow("order:0:1", latticeOf({"0190", "0071"}, 2)).real("order_0_1"), 2.0 / 8.0);
}

TEST(Order, IsThatOfTheCountsOfRandomLattices) {
  for (const Snapshot& lattice : randomLattices()) {
    if (lattice.numTypes < 2) continue;
    const NamedRow row("counts,order:1:0", lattice);
    const auto difference = static_cast<double>(row.number("count_1") - row.number("count_0"));
    EXPECT_EQ(row.real("order_1_0"), difference / static_cast<double>(lattice.numSites()))
        << describe(lattice);
  }
}

}  // namespace
}  // namespace quorvane
