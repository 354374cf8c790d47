#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <thread>
#include <utility>

#include "OtherPlatform.h"
#include "Waiting.h"
#include "engine/RandomSource.h"

namespace quorvane {
namespace {

/// Another thread of the process that repeats an action, as a graphics driver may.
class Meanwhile {
 public:
  explicit Meanwhile(std::function<void()> something)
      : thread_([this, does = std::move(something)] {
          while (!ended_) {
            does();
            ++times_;
          }
        }) {
    while (times_ == 0) std::this_thread::yield();
  }
  ~Meanwhile() {
    ended_ = true;
    thread_.join();
  }
  Meanwhile(const Meanwhile&) = delete;
  Meanwhile& operator=(const Meanwhile&) = delete;

  std::int64_t times() const { return times_; }

 private:
  std::atomic<bool> ended_{false};
  std::atomic<std::int64_t> times_{0};
  std::thread thread_;
};

constexpr double kFirstDraw = 0.32136549381539226;

/// Fresh sources, as in that many processes that start.
void expectEveryStartToKeepItsOwnState(int starts) {
  for (int start = 0; start < starts; ++start) {
    RandomSource source;
    ASSERT_EQ(source.next() / RandomSource::maxran, kFirstDraw) << "start " << start;
    ASSERT_TRUE(source.drawsItself()) << "start " << start;
  }
}

TEST(PlatformRand, IsRecognisedAThousandTimesWhileAnotherThreadDraws) {
  const Meanwhile other([] { std::rand(); });
  const auto before = other.times();
  // The other thread may get its first turn late.
  EXPECT_TRUE(waitUntil([&] {
    expectEveryStartToKeepItsOwnState(1000);
    return other.times() > before + 1000;
  }));
}

TEST(PlatformRand, IsRecognisedWhileTwoThreadsDraw) {
  const Meanwhile other([] { std::rand(); });
  const Meanwhile third([] { std::rand(); });
  expectEveryStartToKeepItsOwnState(1000);
}

TEST(PlatformRand, IsRecognisedWhileAnotherThreadSeedsIt) {
  unsigned seed = 0;
  const Meanwhile other([&] {
    std::srand(++seed);
    for (int k = 0; k < 5; ++k) std::rand();
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  });
  expectEveryStartToKeepItsOwnState(1000);
}

TEST(PlatformRand, IsRecognisedByAnEarlyLookThatDoesNotChangeTheSequence) {
  RandomSource source;
  source.lookAtPlatform();
  EXPECT_TRUE(source.drawsItself());
  source.lookAtPlatform();
  RandomSource other;
  for (int k = 0; k < 1000; ++k) ASSERT_EQ(source.next(), other.next());
}

TEST(PlatformRand, IsLookedAtOnlyOnce) {
  static int seedings;
  seedings = 0;
  const auto seed = [](unsigned value) {
    ++seedings;
    std::srand(value);
  };
  RandomSource source(PlatformRand{seed, &std::rand});
  source.lookAtPlatform();
  const int once = seedings;
  EXPECT_GT(once, 0);
  source.lookAtPlatform();
  source.next();
  EXPECT_EQ(seedings, once);
}

/// The C library's sequence with certain values left out, always the same ones.
struct Thinned {
  static inline int drawn = 0;
  static void srand(unsigned seed) {
    std::srand(seed);
    drawn = 0;
  }
  static int rand() {
    if (++drawn % 100 == 0) std::rand();
    return std::rand();
  }
};

TEST(PlatformRand, IsNotRecognisedIfValuesAreLeftOut) {
  RandomSource source(PlatformRand{&Thinned::srand, &Thinned::rand});
  source.next();
  EXPECT_FALSE(source.drawsItself());
}

/// A generator that ignores seeds, as on some systems: its sequence never repeats.
struct Unseeded : OtherPlatform<31> {
  static void srand(unsigned) {}
};

TEST(PlatformRand, IsNotRecognisedIfItIgnoresSeedsWhichTakesBoundedTime) {
  RandomSource source(PlatformRand{&Unseeded::srand, &Unseeded::rand});
  const auto begin = std::chrono::steady_clock::now();
  source.next();
  EXPECT_FALSE(source.drawsItself());
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(30));
}

}  // namespace
}  // namespace quorvane
