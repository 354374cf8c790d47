#include <gtest/gtest.h>

#include <cmath>

#include "MeasureSupport.h"

namespace quorvane {
namespace {

double correlationAt(const Snapshot& lattice, int type, int r) {
  return NamedRow("correlation", lattice).real("c_" + std::to_string(type) + "_" + std::to_string(r));
}

double literalCorrelation(const Snapshot& lattice, int type, int r) {
  const auto holds = [&](int i, int j) { return typeAt(lattice, i, j) == type ? 1.0 : 0.0; };
  double products = 0.0, mean = 0.0;
  for (int i = 0; i < lattice.imax; ++i)
    for (int j = 0; j < lattice.jmax; ++j) {
      mean += holds(i, j);
      products += holds(i, j) * holds(i + r, j) + holds(i, j) * holds(i, j + r);
    }
  const auto numSites = static_cast<double>(lattice.numSites());
  return products / (2.0 * numSites) - mean * mean / (numSites * numSites);
}

TEST(Correlation, IsThatOfItsDefinitionOnRandomLattices) {
  for (const Snapshot& lattice : randomLattices()) {
    const NamedRow row("correlation", lattice);
    const int largest = std::min(lattice.imax, lattice.jmax) / 2;
    EXPECT_EQ(row.size(), static_cast<std::size_t>(lattice.numTypes * largest)) << describe(lattice);
    for (int t = 0; t < lattice.numTypes; ++t)
      for (int r = 1; r <= largest; ++r)
        EXPECT_NEAR(row.real("c_" + std::to_string(t) + "_" + std::to_string(r)),
                    literalCorrelation(lattice, t, r), 1e-14)
            << describe(lattice);
  }
}

TEST(Correlation, IsThatOfItsDefinitionOnALatticeOfTheLargestSize) {
  const Snapshot lattice = randomLattice(256, 256, 3, 4);
  for (const int r : {1, 2, 63, 64, 65, 127, 128})
    EXPECT_NEAR(correlationAt(lattice, 2, r), literalCorrelation(lattice, 2, r), 1e-12) << r;
}

TEST(Correlation, OfACheckerboardAlternates) {
  const Snapshot lattice = latticeOf({"0101", "1010", "0101", "1010"}, 2);
  for (const int type : {0, 1}) {
    EXPECT_EQ(correlationAt(lattice, type, 1), -0.25);
    EXPECT_EQ(correlationAt(lattice, type, 2), 0.25);
  }
}

TEST(Correlation, OfStripesIsTheMeanOfBothAxes) {
  const Snapshot lattice = latticeOf({"0011", "0011", "0011", "0011"}, 2);
  EXPECT_EQ(correlationAt(lattice, 1, 1), 0.5 * (0.5 + 0.25) - 0.25);
  EXPECT_EQ(correlationAt(lattice, 1, 2), 0.5 * (0.5 + 0.0) - 0.25);
}

TEST(Correlation, OfAFullLatticeAndOfAMissingTypeIsNone) {
  const NamedRow row("correlation", emptyLattice(8, 6, 3));
  EXPECT_EQ(row.size(), 9U);
  for (int t = 0; t < 3; ++t)
    for (int r = 1; r <= 3; ++r) EXPECT_EQ(row.real("c_" + std::to_string(t) + "_" + std::to_string(r)), 0.0);
}

TEST(Correlation, OfASingleSiteIsLessTheSquareOfItsShare) {
  Snapshot lattice = emptyLattice(6, 7, 2);
  setType(lattice, 3, 3, 1);
  for (int r = 1; r <= 3; ++r) EXPECT_EQ(correlationAt(lattice, 1, r), -1.0 / (42.0 * 42.0));
}

TEST(Correlation, OfALatticeOfOneSiteAcrossHasNoColumns) {
  EXPECT_EQ(NamedRow("correlation", emptyLattice(1, 9, 2)).size(), 0U);
}

TEST(Correlation, OfTwoTypesDiffersWhereAThirdOneHoldsSites) {
  const Snapshot lattice = latticeOf({"0011", "0011", "0019", "0011"}, 2);
  EXPECT_NEAR(correlationAt(lattice, 0, 1), literalCorrelation(lattice, 0, 1), 1e-15);
  EXPECT_NEAR(correlationAt(lattice, 1, 1), literalCorrelation(lattice, 1, 1), 1e-15);
  EXPECT_NE(correlationAt(lattice, 0, 1), correlationAt(lattice, 1, 1));
}

}  // namespace
}  // namespace quorvane
