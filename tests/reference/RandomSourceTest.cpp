#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <thread>
#include <vector>

#include "OtherPlatform.h"
#include "engine/RandomSource.h"
#include "engine/f_ran0.h"
#include "reference/Lockstep.h"
#include "reference/Ran0.h"

namespace quorvane {
namespace {

double real(RandomSource& source) { return source.next() / RandomSource::maxran; }

TEST(RandomSource, EqualsTheSeededCLibraryThroughTheShuffleTableForTwelveMillionDraws) {
  reference::restartSources();
  ASSERT_TRUE(processRandomSource.drawsItself());
  for (int k = 0; k < 12'000'000; ++k) ASSERT_EQ(fRandReal(), reference::fRandReal()) << "draw " << k;
}

TEST(RandomSource, StartsAnewAsTheCLibraryDoesWithTheSameSeed) {
  for (const int seed : {1, 2, 10, 4711, 2147483646, 2147483647}) {
    RandomSource source;
    for (int k = 0; k < 5; ++k) source.next();
    source.startAnew(seed);
    // The first draw may look at the C library's generator, so it comes before the reference seeds it.
    const double first = real(source);
    reference::Ran0<reference::CLibrary> expected(seed);
    ASSERT_EQ(first, expected.next()) << "seed " << seed;
    for (int k = 0; k < 100'000; ++k)
      ASSERT_EQ(real(source), expected.next()) << "seed " << seed << ", draw " << k;
  }
}

TEST(RandomSource, StartsAnewWithTenAsItFirstStarts) {
  RandomSource fresh, again;
  for (int k = 0; k < 1000; ++k) again.next();
  again.startAnew(10);
  for (int k = 0; k < 1000; ++k) ASSERT_EQ(again.next(), fresh.next());
}

TEST(RandomSource, StartsAnewOnAnotherPlatform) {
  using Ours = OtherPlatform<31, 0>;
  using Theirs = OtherPlatform<31, 1>;
  RandomSource source(PlatformRand{&Ours::srand, &Ours::rand});
  for (int k = 0; k < 7; ++k) source.next();
  source.startAnew(99);
  reference::Ran0<Theirs> expected(99);
  for (int k = 0; k < 1000; ++k) ASSERT_EQ(real(source), expected.next()) << "draw " << k;
}

TEST(RandomSource, KeepsItsSequenceWhenOtherCodeSeedsAndDrawsFromTheCLibrary) {
  RandomSource undisturbed;
  RandomSource disturbed;
  undisturbed.next();
  disturbed.next();
  std::vector<std::uint32_t> expected;
  for (int k = 0; k < 10'000; ++k) expected.push_back(undisturbed.next());
  for (int k = 0; k < 10'000; ++k) {
    if (k % 7 == 0) std::srand(static_cast<unsigned>(k));
    std::rand();
    ASSERT_EQ(disturbed.next(), expected[static_cast<std::size_t>(k)]) << "draw " << k;
  }
}

TEST(RandomSource, StartsWithTheSameDrawsWhateverOtherCodeHasDrawnBefore) {
  RandomSource first;
  const auto expected = first.next();
  std::srand(4711);
  std::rand();
  RandomSource second;
  EXPECT_EQ(second.next(), expected);
}

TEST(RandomSource, DrawsFromAnotherPlatformsGeneratorThroughTheShuffleTable) {
  using Ours = OtherPlatform<31, 0>;
  using Theirs = OtherPlatform<31, 1>;
  RandomSource source(PlatformRand{&Ours::srand, &Ours::rand});
  reference::Ran0<Theirs> expected;
  for (int k = 0; k < 100'000; ++k) ASSERT_EQ(real(source), expected.next()) << "draw " << k;
  EXPECT_FALSE(source.drawsItself());
}

TEST(RandomSource, DrawsFromAGeneratorOfASmallerRange) {
  using Ours = OtherPlatform<15, 2>;
  using Theirs = OtherPlatform<15, 3>;
  RandomSource source(PlatformRand{&Ours::srand, &Ours::rand});
  reference::Ran0<Theirs> expected;
  for (int k = 0; k < 100'000; ++k) {
    const double draw = real(source);
    ASSERT_EQ(draw, expected.next()) << "draw " << k;
    ASSERT_LT(draw, 1.0);
  }
}

TEST(RandomSource, SeedsAnotherPlatformsGeneratorWithTenAndNeverAfterTheFirstDraw) {
  using Ours = OtherPlatform<31, 4>;
  RandomSource source(PlatformRand{&Ours::srand, &Ours::rand});
  EXPECT_EQ(Ours::seedings, 0);
  source.next();
  EXPECT_EQ(Ours::lastSeed, 10u);
  const int seedings = Ours::seedings;
  for (int k = 0; k < 10'000; ++k) source.next();
  EXPECT_EQ(Ours::seedings, seedings);
}

/// The C library's sequence up to some value; from there on one bit differs.
struct LateDifference {
  static inline int drawn = 0;
  static void srand(unsigned seed) {
    std::srand(seed);
    drawn = 0;
  }
  static int rand() { return std::rand() ^ (++drawn > 1990 ? 1 : 0); }
};

TEST(RandomSource, NoticesAGeneratorThatDiffersOnlyAfterNearlyTwoThousandValues) {
  RandomSource source(PlatformRand{&LateDifference::srand, &LateDifference::rand});
  source.next();
  EXPECT_FALSE(source.drawsItself());
}

TEST(RandomSource, EveryValueSelectsTheSlotThatRealArithmeticSelects) {
  const auto expectSame = [](std::uint32_t y) {
    ASSERT_EQ(RandomSource::slot(y),
              static_cast<std::uint32_t>(reference::Ran0<reference::CLibrary>::slot(y)))
        << "for " << y;
  };
  constexpr std::uint32_t values = 1u << 31;
  for (std::uint32_t y = 0; y < values; y += 1009) expectSame(y);
  // Around every value at which the slot changes.
  for (std::uint64_t slot = 1; slot < 97; ++slot) {
    const auto edge = static_cast<std::uint32_t>(slot * values / 97);
    for (std::uint32_t y = edge - 2; y <= edge + 2; ++y) expectSame(y);
  }
  expectSame(values - 1);
}

TEST(RandomSource, TwoThreadsDrawingAtOnceStayInRange) {
  fRandReal();
  std::atomic<int> outside{0};
  std::atomic<int> waiting{2};
  const auto draw = [&] {
    --waiting;
    while (waiting > 0) std::this_thread::yield();
    for (int k = 0; k < 1'000'000; ++k) {
      const double real = fRandReal();
      const int whole = fRandInt(8);
      if (!(real >= 0.0 && real < 1.0) || whole < 1 || whole > 8) ++outside;
    }
  };
  std::thread other(draw);
  draw();
  other.join();
  EXPECT_EQ(outside, 0);
}

TEST(RandomSource, DrawsAreStillUniformAfterTwoThreadsHaveDrawnAtOnce) {
  fRandReal();
  std::thread other([] {
    for (int k = 0; k < 500'000; ++k) fRandReal();
  });
  for (int k = 0; k < 500'000; ++k) fRandReal();
  other.join();
  double sum = 0.0;
  constexpr int draws = 1'000'000;
  for (int k = 0; k < draws; ++k) sum += fRandReal();
  // Five standard deviations of the mean of that many uniform draws.
  EXPECT_NEAR(sum / draws, 0.5, 5 * 0.2887 / 1000);
}

}  // namespace
}  // namespace quorvane
