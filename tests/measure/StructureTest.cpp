#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>

#include "MeasureSupport.h"

namespace quorvane {
namespace {

/// The bin of a wave vector, by real numbers.
std::size_t literalBin(const Snapshot& lattice, int m, int n) {
  const double larger = std::max(lattice.imax, lattice.jmax);
  const double x = std::min(m, lattice.imax - m) / static_cast<double>(lattice.imax);
  const double y = std::min(n, lattice.jmax - n) / static_cast<double>(lattice.jmax);
  // Far below the smallest difference of a length from a half that these lattices have, but for none.
  constexpr double rounding = 1e-9;
  return static_cast<std::size_t>(std::floor(std::hypot(x, y) * larger + 0.5 + rounding));
}

/// How many wave vectors are in each bin from 0 on.
std::vector<int> literalNumbers(const Snapshot& lattice) {
  std::vector<int> numbers;
  for (int m = 0; m < lattice.imax; ++m)
    for (int n = 0; n < lattice.jmax; ++n) {
      const auto bin = literalBin(lattice, m, n);
      if (numbers.size() <= bin) numbers.resize(bin + 1);
      ++numbers[bin];
    }
  return numbers;
}

/// The bins from 1 on and the length, by sums over all sites for each wave vector.
struct LiteralStructure {
  std::vector<double> bins;
  double length = 0.0;

  LiteralStructure(const Snapshot& lattice, int type) {
    const auto numbers = literalNumbers(lattice);
    bins.resize(numbers.size() - 1);
    for (int m = 0; m < lattice.imax; ++m)
      for (int n = 0; n < lattice.jmax; ++n)
        if (const auto bin = literalBin(lattice, m, n); bin > 0)
          bins[bin - 1] += factor(lattice, type, m, n) / numbers[bin];
    double sum = 0.0, moment = 0.0;
    for (std::size_t k = 0; k < bins.size(); ++k) {
      sum += bins[k];
      moment += static_cast<double>(k + 1) * bins[k];
    }
    length = std::max(lattice.imax, lattice.jmax) * sum / moment;
  }

  static double factor(const Snapshot& lattice, int type, int m, int n) {
    std::complex<double> sum = 0.0;
    for (int i = 0; i < lattice.imax; ++i)
      for (int j = 0; j < lattice.jmax; ++j)
        if (typeAt(lattice, i, j) == type)
          sum += std::polar(1.0, -2.0 * std::numbers::pi *
                                     (static_cast<double>(m) * i / lattice.imax +
                                      static_cast<double>(n) * j / lattice.jmax));
    return std::norm(sum) / static_cast<double>(lattice.numSites());
  }
};

std::string binColumn(int type, std::size_t k) {
  return "s_" + std::to_string(type) + "_" + std::to_string(k);
}

void expectAsLiteral(const Snapshot& lattice, double tolerance) {
  const NamedRow row("structure", lattice);
  const NamedRow counts("counts", lattice);
  std::size_t numValues = 0;
  for (int t = 0; t < lattice.numTypes; ++t) {
    const LiteralStructure literal(lattice, t);
    for (std::size_t k = 1; k <= literal.bins.size(); ++k)
      EXPECT_NEAR(row.real(binColumn(t, k)), literal.bins[k - 1], tolerance)
          << describe(lattice) << ", bin " << k;
    const auto count = counts.number("count_" + std::to_string(t));
    const double length = row.real("length_" + std::to_string(t));
    if (count == 0 || count == lattice.numSites())
      EXPECT_TRUE(std::isnan(length)) << describe(lattice);
    else
      EXPECT_NEAR(length, literal.length, tolerance) << describe(lattice);
    numValues += literal.bins.size() + 1;
  }
  EXPECT_EQ(row.size(), numValues) << describe(lattice);
}

TEST(Structure, IsThatOfASumOverAllSitesOnRandomLattices) {
  for (const Snapshot& lattice : randomLattices())
    if (lattice.numTypes < 10) expectAsLiteral(lattice, 1e-11);
}

TEST(Structure, OfTwoTypesDiffersWhereAThirdOneHoldsSites) {
  Snapshot lattice = randomLattice(9, 12, 3, 3);
  lattice.numTypes = 2;
  lattice.names.resize(2);
  expectAsLiteral(lattice, 1e-11);
}

TEST(Structure, HasNoEmptyBin) {
  for (int imax = 1; imax <= 24; ++imax)
    for (int jmax = 1; jmax <= 24; ++jmax)
      for (const int number : literalNumbers(emptyLattice(imax, jmax, 2)))
        EXPECT_GT(number, 0) << imax << " x " << jmax;
}

TEST(Structure, OfStripesIsAllInTheBinOfTheirPeriod) {
  Snapshot lattice = emptyLattice(16, 16, 2);
  for (int i = 0; i < 16; ++i)
    for (int j = 0; j < 16; ++j) setType(lattice, i, j, j % 2);
  const NamedRow row("structure", lattice);
  // Of the wave vectors in this bin only (0, 8) is occupied.
  EXPECT_NEAR(row.real("s_1_8") * literalNumbers(lattice)[8], 16.0 * 16.0 / 4.0, 1e-11);
  for (const std::size_t k : {1U, 2U, 7U, 9U, 11U}) EXPECT_NEAR(row.real(binColumn(1, k)), 0.0, 1e-12);
  EXPECT_NEAR(row.real("length_1"), 2.0, 1e-12);
  EXPECT_EQ(row.real("length_0"), row.real("length_1"));
}

TEST(Structure, OfACheckerboardIsAllInTheLastBin) {
  Snapshot lattice = emptyLattice(8, 8, 2);
  for (int i = 0; i < 8; ++i)
    for (int j = 0; j < 8; ++j) setType(lattice, i, j, (i + j) % 2);
  const NamedRow row("structure", lattice);
  // |q| is 8 / sqrt 2 = 5.66 units.
  ASSERT_EQ(row.size(), 2 * (6U + 1U));
  EXPECT_NEAR(row.real("s_0_6") * literalNumbers(lattice)[6], 64.0 / 4.0, 1e-12);
  EXPECT_NEAR(row.real("length_0"), 8.0 / 6.0, 1e-12);
}

TEST(Structure, OfASingleSiteIsTheSameInAllBins) {
  Snapshot lattice = emptyLattice(10, 14, 2);
  setType(lattice, 7, 2, 1);
  const NamedRow row("structure", lattice);
  for (std::size_t k = 1; k + 1 <= row.size() / 2; ++k)
    EXPECT_NEAR(row.real(binColumn(1, k)), 1.0 / 140.0, 1e-15);
}

TEST(Structure, OfAFullLatticeIsExactlyNoneAndHasNoLength) {
  const NamedRow row("structure", emptyLattice(12, 5, 2));
  for (std::size_t k = 1; k + 1 <= row.size() / 2; ++k) EXPECT_EQ(row.real(binColumn(0, k)), 0.0);
  EXPECT_TRUE(std::isnan(row.real("length_0")));
  EXPECT_TRUE(std::isnan(row.real("length_1")));
}

TEST(Structure, OfOneSiteHasOnlyALength) {
  const NamedRow row("structure", emptyLattice(1, 1, 2));
  EXPECT_EQ(row.size(), 2U);
  EXPECT_TRUE(std::isnan(row.real("length_0")));
}

// The sum over all wave vectors is that of the squares over all sites.
TEST(Structure, AddsUpToTheVarianceOfTheSites) {
  const Snapshot lattice = randomLattice(256, 256, 2, 9);
  const NamedRow row("structure,counts", lattice);
  std::vector<int> numbers(400);
  int last = 0;
  for (int m = -127; m <= 128; ++m)
    for (int n = -127; n <= 128; ++n) {
      const int bin = static_cast<int>(std::lround(std::hypot(m, n)));
      ++numbers[static_cast<std::size_t>(bin)];
      last = std::max(last, bin);
    }
  double sum = 0.0;
  for (int k = 1; k <= last; ++k)
    sum += numbers[static_cast<std::size_t>(k)] * row.real(binColumn(1, static_cast<std::size_t>(k)));
  const double share = static_cast<double>(row.number("count_1")) / 65536.0;
  EXPECT_NEAR(sum, 65536.0 * share * (1.0 - share), 1e-7);
}

TEST(Structure, IsTheSameToTheBitForALatticeThatIsShiftedOrMirrored) {
  for (const auto& [imax, jmax] : {std::pair{33, 17}, {16, 24}, {31, 2}}) {
    const Snapshot lattice = randomLattice(imax, jmax, 3, 8);
    Snapshot shifted = lattice, mirrored = lattice;
    for (int i = 0; i < imax; ++i)
      for (int j = 0; j < jmax; ++j) {
        setType(shifted, i, j, typeAt(lattice, i + 5, j - 3));
        setType(mirrored, i, j, typeAt(lattice, -i, j));
      }
    const auto row = [](const Snapshot& of) { return Measurements("structure", of).csvRow(0, of); };
    EXPECT_EQ(row(shifted), row(lattice));
    EXPECT_EQ(row(mirrored), row(lattice));
  }
}

}  // namespace
}  // namespace quorvane
