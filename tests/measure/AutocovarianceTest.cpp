#include <gtest/gtest.h>

#include "Autocovariance.h"
#include "MeasureSupport.h"

namespace quorvane {
namespace {

/// How many sites of a type have another one of it at a displacement.
std::int64_t pairsAt(const Snapshot& lattice, int type, int a, int b) {
  std::int64_t pairs = 0;
  for (int i = 0; i < lattice.imax; ++i)
    for (int j = 0; j < lattice.jmax; ++j)
      pairs += typeAt(lattice, i, j) == type && typeAt(lattice, i + a, j + b) == type ? 1 : 0;
  return pairs;
}

std::vector<double> literalAutocovariance(const Snapshot& lattice, int type, std::int64_t count) {
  const int height = lattice.jmax / 2 + 1;
  std::vector<double> folded(static_cast<std::size_t>((lattice.imax / 2 + 1) * height));
  for (int i = 0; i < lattice.imax; ++i)
    for (int j = 0; j < lattice.jmax; ++j) {
      const int a = std::min(i, lattice.imax - i), b = std::min(j, lattice.jmax - j);
      const std::int64_t value = lattice.numSites() * pairsAt(lattice, type, i, j) - count * count;
      folded[static_cast<std::size_t>(a * height + b)] += static_cast<double>(value);
    }
  return folded;
}

// Not only nearly: its bits must not depend on the processor.
TEST(Autocovariance, IsExactlyThatOfCountedPairs) {
  for (const Snapshot& lattice : randomLattices()) {
    CosineTransform transform(lattice.imax, lattice.jmax);
    Autocovariance covariance(lattice.imax, lattice.jmax, transform);
    for (int t = 0; t < std::min(lattice.numTypes, 3); ++t) {
      const std::int64_t count = pairsAt(lattice, t, 0, 0);
      EXPECT_EQ(covariance.foldedOf(lattice, t, count), literalAutocovariance(lattice, t, count))
          << describe(lattice) << ", type " << t;
    }
  }
}

TEST(Autocovariance, IsExactOnALatticeOfTheLargestSize) {
  const Snapshot lattice = randomLattice(256, 256, 2, 6);
  CosineTransform transform(256, 256);
  Autocovariance covariance(256, 256, transform);
  const std::int64_t count = pairsAt(lattice, 1, 0, 0), numSites = 65536;
  const auto& folded = covariance.foldedOf(lattice, 1, count);
  for (const auto& [a, b] : {std::pair{0, 0}, {1, 0}, {5, 7}, {127, 64}, {128, 128}}) {
    std::int64_t expected = 0;
    for (const int i : a == 0 || a == 128 ? std::vector{a} : std::vector{a, -a})
      for (const int j : b == 0 || b == 128 ? std::vector{b} : std::vector{b, -b})
        expected += numSites * pairsAt(lattice, 1, i, j) - count * count;
    EXPECT_EQ(folded[static_cast<std::size_t>(a * 129 + b)], static_cast<double>(expected)) << a << ", " << b;
  }
}

}  // namespace
}  // namespace quorvane
