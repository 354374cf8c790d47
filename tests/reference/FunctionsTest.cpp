#include <gtest/gtest.h>

#include <limits>

#include "engine/f_LMlattice.h"
#include "engine/f_ran0.h"
#include "reference/Cases.h"
#include "reference/LatticeFunctions.h"
#include "reference/Lockstep.h"
#include "reference/Ran0.h"

namespace quorvane {
namespace {

using reference::restartSources;
using reference::sourcesAgree;

constexpr int kLargest = std::numeric_limits<int>::max();
constexpr int kSmallest = std::numeric_limits<int>::min();

void expectSameIntegers(int n, int draws) {
  for (int k = 0; k < draws; ++k) ASSERT_EQ(fRandInt(n), reference::fRandInt(n)) << "n = " << n;
}

TEST(Functions, RandIntEqualsTheReferenceForEverySmallNumber) {
  restartSources();
  for (int n = -300; n <= 3000; ++n) expectSameIntegers(n, 300);
}

TEST(Functions, RandIntEqualsTheReferenceAroundEveryPowerOfTwo) {
  restartSources();
  for (int power = 2; power < 31; ++power)
    for (const int off : {-1, 0, 1})
      for (const int sign : {1, -1}) expectSameIntegers(sign * ((1 << power) + off), 3000);
  for (const int n : {kLargest, kLargest - 1, kSmallest, kSmallest + 1, 1'000'000'007})
    expectSameIntegers(n, 3000);
}

TEST(Functions, StepsEqualTheReferenceForEveryCode) {
  for (int dir = -10; dir <= 20; ++dir)
    for (int x = -3; x <= 260; ++x) {
      ASSERT_EQ(fn_neighbi(x, dir), reference::fn_neighbi(x, dir));
      ASSERT_EQ(fn_neighbj(x, dir), reference::fn_neighbj(x, dir));
    }
}

TEST(Functions, WrapEqualsTheReference) {
  for (int n = 1; n <= 300; ++n) {
    for (int x = -1000; x <= 1000; ++x) ASSERT_EQ(fn_pbc(x, n), reference::fn_pbc(x, n));
    for (const int x : {kSmallest, kSmallest + 1, kLargest - 1, kLargest})
      ASSERT_EQ(fn_pbc(x, n), reference::fn_pbc(x, n));
  }
}

TEST(Functions, FinalTypeEqualsTheReferenceForEveryCombination) {
  restartSources();
  for (int numTypes = 1; numTypes <= 10; ++numTypes)
    for (int current = 0; current < 10; ++current)
      for (int endA = -1; endA < 10; ++endA)
        for (int endB = -1; endB < 10; ++endB) {
          ASSERT_EQ(fFigureOutFinalSiteType(current, endA, endB, numTypes),
                    reference::fFigureOutFinalSiteType(current, endA, endB, numTypes));
          ASSERT_TRUE(sourcesAgree());
        }
}

TEST(Functions, FillingEqualsTheReference) {
  restartSources();
  for (const auto [imax, jmax] : reference::awkwardSizes())
    for (const int numTypes : {1, 2, 3, 7, 10}) {
      reference::Lockstep both(reference::randomSystem({imax, jmax}, 5));
      fModelInit(numTypes, imax, jmax, both.engine().lattice);
      reference::fModelInit(numTypes, imax, jmax, both.plain().lattice);
      ASSERT_EQ(both.compareLattices(), "");
      ASSERT_TRUE(sourcesAgree());
    }
}

TEST(Functions, EnergiesAndCountsEqualTheReferenceAtEverySiteOfAwkwardLattices) {
  for (const auto size : reference::awkwardSizes())
    for (std::uint64_t seed = 0; seed < 24; ++seed) {
      reference::Lockstep both(reference::randomSystem(size, seed));
      const int step = size.imax * size.jmax > 2000 ? 5 : 1;
      for (int i = 0; i < size.imax; i += step)
        for (int j = 0; j < size.jmax; j += step) {
          ASSERT_EQ(both.compareQueriesAt(i, j), "") << size.imax << " by " << size.jmax << ", seed " << seed;
        }
      // Trial values must not stay in the lattice.
      ASSERT_EQ(both.compareLattices(), "");
    }
}

TEST(Functions, ExchangeMoveEqualsTheReference) {
  for (const auto size : reference::awkwardSizes())
    for (std::uint64_t seed = 0; seed < 60; ++seed) {
      restartSources(1 + static_cast<int>(seed));
      reference::Lockstep both(reference::randomSystem(size, seed));
      auto& p = both.plain();
      auto& e = both.engine();
      for (int k = 0; k < 200; ++k) {
        const int i = k * 7 % size.imax, j = k * 11 % size.jmax;
        const int target = k % 12 - 1 == 10 ? -1 : k % 12 - 1;
        const int ignore = k % 5 == 0 ? 1 : k % 5 - 2;
        reference::fExchangeMove(i, j, p.imax, p.jmax, target, p.lattice, p.immobile, p.J, ignore);
        fExchangeMove(i, j, e.imax, e.jmax, target, e.lattice, e.immobile, e.J, ignore);
        ASSERT_TRUE(sourcesAgree()) << size.imax << " by " << size.jmax << ", seed " << seed << ", move "
                                    << k;
      }
      ASSERT_EQ(both.compareLattices(), "") << size.imax << " by " << size.jmax << ", seed " << seed;
    }
}

}  // namespace
}  // namespace quorvane
