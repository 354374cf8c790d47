#include <gtest/gtest.h>

#include "EngineTest.h"
#include "ForeseenDraws.h"
#include "engine/f_LMlattice.h"

namespace quorvane {
namespace {

void expectRandom(int current, int endA, int endB) {
  int seen[5] = {};
  for (int k = 0; k < 200; ++k) {
    const int next = ForeseenDraws().whole(5) - 1;
    int final = -1;
    ASSERT_EQ(drawsMadeBy([&] { final = fFigureOutFinalSiteType(current, endA, endB, 5); }), 1);
    ASSERT_EQ(final, next);
    ++seen[final];
  }
  for (const int count : seen) EXPECT_GT(count, 0);
}

void expectFixed(int expected, int current, int endA, int endB) {
  int final = -1;
  EXPECT_EQ(drawsMadeBy([&] { final = fFigureOutFinalSiteType(current, endA, endB, 5); }), 0);
  EXPECT_EQ(final, expected) << current << " between " << endA << " and " << endB;
}

TEST(FinalSiteType, BetweenAnyAndAnyIsRandom) {
  for (int current = 0; current < 5; ++current) expectRandom(current, kAny, kAny);
}

TEST(FinalSiteType, OfTheNamedEndIsRandomIfTheOtherIsAny) {
  expectRandom(3, 3, kAny);
  expectRandom(3, kAny, 3);
}

TEST(FinalSiteType, OfAnotherTypeIsTheNamedEndIfTheOtherIsAny) {
  for (const int current : {0, 1, 2, 4}) {
    expectFixed(3, current, 3, kAny);
    expectFixed(3, current, kAny, 3);
  }
}

TEST(FinalSiteType, OfEndAIsEndB) { expectFixed(4, 1, 1, 4); }

TEST(FinalSiteType, OfEndBIsEndA) { expectFixed(1, 4, 1, 4); }

TEST(FinalSiteType, OfAThirdTypeIsEndA) { expectFixed(1, 2, 1, 4); }

TEST(FinalSiteType, BetweenATypeAndItselfIsThatType) {
  expectFixed(2, 2, 2, 2);
  expectFixed(2, 0, 2, 2);
}

}  // namespace
}  // namespace quorvane
