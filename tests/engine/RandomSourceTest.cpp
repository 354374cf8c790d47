#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>

#include "ForeseenDraws.h"
#include "OtherPlatform.h"
#include "engine/RandomSource.h"
#include "engine/f_ran0.h"

namespace quorvane {
namespace {

TEST(RandomSource, ARandValueOfZeroSelectsTheFirstSlot) { EXPECT_EQ(RandomSource::slot(0), 1u); }

TEST(RandomSource, TheLargestRandValueSelectsTheLastSlot) { EXPECT_EQ(RandomSource::slot(2147483647), 97u); }

TEST(RandomSource, ASlotHoldsTheNinetySeventhPartOfTheValues) {
  for (std::uint32_t slot = 1; slot < 97; ++slot) {
    const auto firstOfNext = static_cast<std::uint32_t>((std::uint64_t{slot} * 2147483648u + 96) / 97);
    EXPECT_EQ(RandomSource::slot(firstOfNext - 1), slot);
    EXPECT_EQ(RandomSource::slot(firstOfNext), slot + 1);
  }
}

TEST(RandomSource, TwoFreshSourcesDrawTheSameNumbers) {
  RandomSource a, b;
  for (int k = 0; k < 1000; ++k) ASSERT_EQ(a.next(), b.next());
}

TEST(RandomSource, BeginsWithTheSameThreeValues) {
  RandomSource source;
  for (const double expected : {0.32136549381539226, 0.84746248042210937, 0.35341121396049857})
    EXPECT_EQ(source.next() / RandomSource::maxran, expected);
}

TEST(RandomSource, ComparesThePlatformAtItsFirstDraw) {
  RandomSource source;
  EXPECT_FALSE(source.drawsItself());
  source.next();
  EXPECT_TRUE(source.drawsItself());
}

TEST(RandomSource, ASmallestDrawIsZero) {
  const SmallestDraws draws;
  EXPECT_EQ(fRandReal(), 0.0);
  EXPECT_EQ(fRandInt(8), 1);
}

TEST(RandomSource, ALargestDrawIsBelowOne) {
  const LargestDraws draws;
  EXPECT_EQ(fRandReal(), 2147483647.0 / 2147483648.0);
  EXPECT_LT(fRandReal(), 1.0);
  EXPECT_EQ(fRandInt(8), 8);
}

class FeedbackOfSeed : public testing::TestWithParam<int> {};

TEST_P(FeedbackOfSeed, EqualsTheCLibrary) {
  AdditiveFeedback generator;
  generator.seed(GetParam());
  std::srand(static_cast<unsigned>(GetParam()));
  for (int k = 0; k < 100'000; ++k)
    ASSERT_EQ(static_cast<int>(generator.next()), std::rand()) << "value " << k;
}

INSTANTIATE_TEST_SUITE_P(Seeds, FeedbackOfSeed, testing::Values(1, 2, 10, 12345, 16807, 2147483646));

TEST(RandReal, IsAMultipleOfTwoToTheMinusThirtyOneInRange) {
  for (int k = 0; k < 100'000; ++k) {
    const double draw = fRandReal();
    ASSERT_GE(draw, 0.0);
    ASSERT_LT(draw, 1.0);
    ASSERT_EQ(draw * 2147483648.0, std::floor(draw * 2147483648.0));
  }
}

TEST(RandReal, ReturnsTheDrawUnchanged) {
  for (int k = 0; k < 100; ++k) {
    const double next = ForeseenDraws().real();
    ASSERT_EQ(k % 2 == 0 ? fRandReal() : fn_ran0(), next);
  }
}

TEST(RandReal, IsUniform) {
  constexpr int draws = 970'000, bins = 97;
  constexpr double expected = draws / static_cast<double>(bins);
  int counts[bins] = {};
  for (int k = 0; k < draws; ++k) ++counts[static_cast<int>(fRandReal() * bins)];
  double chiSquare = 0.0;
  for (const int count : counts) {
    const double excess = count - expected;
    chiSquare += excess * excess / expected;
  }
  // 96 degrees of freedom: a uniform source exceeds 160 with a probability of 1 in 20,000.
  EXPECT_LT(chiSquare, 160.0);
}

TEST(RandInt, OfOneIsAlwaysOneAndStillDraws) {
  for (int k = 0; k < 1000; ++k) ASSERT_EQ(fRandInt(1), 1);
  EXPECT_EQ(drawsMadeBy([] { fRandInt(1); }), 1);
}

TEST(RandInt, OfEightIsOneToEightAndEachOfThem) {
  int counts[10] = {};
  for (int k = 0; k < 80'000; ++k) {
    const int value = fRandInt(8);
    ASSERT_GE(value, 1);
    ASSERT_LE(value, 8);
    ++counts[value];
  }
  for (int value = 1; value <= 8; ++value) EXPECT_NEAR(counts[value], 10'000, 500);
}

TEST(RandInt, OfZeroIsOneAndStillDraws) {
  EXPECT_EQ(drawsMadeBy([] { EXPECT_EQ(fRandInt(0), 1); }), 1);
}

TEST(RandInt, IsTheFloorOfTheScaledDrawPlusOne) {
  for (const int n : {1, 2, 3, 10, 97, 256, 65536, 4194303, 4194304, 4194305, 1'000'000'007,
                      std::numeric_limits<int>::max()})
    for (int k = 0; k < 1000; ++k) {
      const double u = ForeseenDraws().real();
      const int value = fRandInt(n);
      ASSERT_EQ(value, static_cast<int>(std::floor(u * n) + 1.0)) << "n = " << n;
      ASSERT_GE(value, 1);
      ASSERT_LE(value, n);
    }
}

TEST(RandInt, OfANegativeNumberIsTheFloorOfTheScaledDrawPlusOne) {
  for (const int n : {-1, -2, -10, -4194305, std::numeric_limits<int>::min()})
    for (int k = 0; k < 1000; ++k) {
      const double u = ForeseenDraws().real();
      ASSERT_EQ(fRandInt(n), static_cast<int>(std::floor(u * n) + 1.0)) << "n = " << n;
    }
}

TEST(RandInt, RoundsTheScaledDrawAsRealArithmeticDoes) {
  // The exact products lie just below a whole number, to which a double rounds them.
  {
    const ConstantDraws<2146992945> draws;
    EXPECT_EQ(fRandInt(4196911), 4195953);
  }
  const ConstantDraws<2147481601> draws;
  EXPECT_EQ(fRandInt(-4196353), -4196348);
}

TEST(RandInt, MakesOneDrawForAnyNumber) {
  for (const int n : {2, 8, 256, 5'000'000, -3})
    EXPECT_EQ(drawsMadeBy([n] { fRandInt(n); }), 1) << "n = " << n;
}

TEST(DrawsMade, IsTheNumberOfSingleDraws) {
  RandomSource source;
  EXPECT_EQ(source.drawsMade(), 0);
  // The generator's array is left behind every 289 draws.
  for (std::int64_t k = 1; k <= 5000; ++k) {
    source.next();
    ASSERT_EQ(source.drawsMade(), k);
  }
}

TEST(DrawsMade, IsZeroAfterAStartWithoutADraw) {
  RandomSource source;
  source.lookAtPlatform();
  EXPECT_EQ(source.drawsMade(), 0);
  source.start();
  EXPECT_EQ(source.drawsMade(), 0);
}

TEST(DrawsMade, ContinuesOverNewSeeds) {
  RandomSource source;
  std::int64_t draws = 0;
  for (const int seed : {1, 2, 10, 2147483647})
    for (const int count : {0, 1, 7, 288, 289, 290, 1000}) {
      source.startAnew(seed);
      ASSERT_EQ(source.drawsMade(), draws);
      for (int k = 0; k < count; ++k) source.next();
      ASSERT_EQ(source.drawsMade(), draws += count) << "seed " << seed;
    }
}

TEST(DrawsMade, CountsThoseOfAStreamWhenItEnds) {
  RandomSource source;
  source.start();
  std::int64_t draws = 0;
  for (int length = 0; length < 700; ++length) {
    {
      RandomSource::Stream stream(source);
      for (int k = 0; k < length; ++k) {
        // As an attempt does: some draws for each call.
        if (k % 3 == 0) stream.makeRoom();
        k % 3 == 2 ? static_cast<void>(stream.real()) : static_cast<void>(stream.below(5));
      }
    }
    ASSERT_EQ(source.drawsMade(), draws += length);
    source.next();
    ASSERT_EQ(source.drawsMade(), ++draws);
  }
}

TEST(DrawsMade, CountsThoseOfThePlatformsGenerator) {
  using Platform = OtherPlatform<31, 7>;
  RandomSource source(PlatformRand{&Platform::srand, &Platform::rand});
  for (std::int64_t k = 1; k <= 1000; ++k) {
    source.next();
    ASSERT_EQ(source.drawsMade(), k);
  }
  ASSERT_FALSE(source.drawsItself());
  source.startAnew(3);
  source.next();
  EXPECT_EQ(source.drawsMade(), 1001);
}

TEST(DrawsMade, IsCopiedWithTheSource) {
  RandomSource source;
  for (int k = 0; k < 400; ++k) source.next();
  RandomSource copy = source;
  copy.next();
  EXPECT_EQ(copy.drawsMade(), 401);
  EXPECT_EQ(source.drawsMade(), 400);
}

}  // namespace
}  // namespace quorvane
