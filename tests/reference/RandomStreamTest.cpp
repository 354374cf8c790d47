#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <cstdint>
#include <thread>

#include "engine/RandomSource.h"
#include "engine/f_ran0.h"
#include "reference/Lockstep.h"
#include "reference/Ran0.h"

namespace quorvane {
namespace {

using Stream = RandomSource::Stream;

TEST(RandomStream, EqualsSingleDraws) {
  reference::restartSources();
  Stream stream(processRandomSource);
  // Every number of draws between two makeRooms, so that the words are moved at every distance from their
  // end.
  for (int k = 0; k < 1'000'000; ++k) {
    stream.makeRoom();
    for (int draws = k % (static_cast<int>(Stream::kRoom) + 1); draws > 0; --draws)
      ASSERT_EQ(stream.real(), reference::fRandReal()) << "group " << k;
  }
}

TEST(RandomStream, DrawsWholeNumbersAsFRandIntDoes) {
  reference::restartSources();
  Stream stream(processRandomSource);
  for (std::uint32_t n = 1; n < 1u << 22; n += 1 + n / 7)
    for (int k = 0; k < 100; ++k) {
      stream.makeRoom();
      ASSERT_EQ(static_cast<int>(stream.below(n)), reference::fRandInt(static_cast<int>(n)) - 1)
          << "of " << n;
    }
}

TEST(RandomStream, StoresItsPositionInTheSourceAtItsEnd) {
  reference::restartSources();
  for (int k = 0; k < 2000; ++k) {
    {
      Stream stream(processRandomSource);
      stream.makeRoom();
      for (int draws = k % 9; draws > 0; --draws) ASSERT_EQ(stream.real(), reference::fRandReal());
    }
    ASSERT_TRUE(reference::sourcesAgree()) << "after stream " << k;
    ASSERT_EQ(fRandReal(), reference::fRandReal());
  }
}

#ifndef NDEBUG
TEST(RandomStreamDeathTest, EndsTheProgramAtADrawForWhichNoRoomWasMade) {
  fRandReal();
  Stream stream(processRandomSource);
  EXPECT_DEATH(stream.real(), "kRoom");
  stream.makeRoom();
  for (int k = 0; k < Stream::kRoom; ++k) stream.real();
  EXPECT_DEATH(stream.real(), "kRoom");
}
#endif

TEST(RandomStream, TwoAtOnceAndSingleDrawsStayInRange) {
  fRandReal();
  std::atomic<int> outside{0};
  std::atomic<int> waiting{3};
  const auto together = [&](auto&& draw) {
    --waiting;
    while (waiting > 0) std::this_thread::yield();
    for (int k = 0; k < 3000; ++k) draw();
  };
  const auto streamed = [&] {
    together([&] {
      Stream stream(processRandomSource);
      for (int k = 0; k < 100; ++k) {
        stream.makeRoom();
        const double real = stream.real();
        if (!(real >= 0.0 && real < 1.0) || stream.below(8) > 7) ++outside;
      }
    });
  };
  std::thread first(streamed), second(streamed);
  together([&] {
    const double real = fRandReal();
    if (!(real >= 0.0 && real < 1.0)) ++outside;
  });
  first.join();
  second.join();
  EXPECT_EQ(outside, 0);
  // The source still draws uniformly: within five standard deviations of the mean.
  double sum = 0.0;
  constexpr int draws = 1'000'000;
  for (int k = 0; k < draws; ++k) sum += fRandReal();
  EXPECT_NEAR(sum / draws, 0.5, 5 * std::sqrt(1.0 / 12 / draws));
}

}  // namespace
}  // namespace quorvane
