#include <gtest/gtest.h>

#include <type_traits>

#include "view/FramePacer.h"

namespace quorvane {
namespace {

using std::chrono::milliseconds;

/// A clock that goes only where a test lets time pass.
struct SetClock {
  using duration = std::chrono::nanoseconds;
  using time_point = std::chrono::time_point<SetClock, duration>;
  static inline time_point time{std::chrono::hours(1)};
  static time_point now() { return time; }
};
using Pacer = BasicFramePacer<SetClock>;

void letPass(milliseconds time) { SetClock::time += time; }

void frameOf(Pacer& pacer, milliseconds cost) {
  pacer.frameBegins();
  letPass(cost);
  pacer.frameEnds();
}

TEST(FramePacer, AsksForNoPauseBeforeTheFirstFrame) {
  EXPECT_EQ(Pacer().pauseBeforeNextFrame(), milliseconds(0));
}

TEST(FramePacer, AsksForAPauseAsLongAsTheFrameTook) {
  Pacer pacer;
  frameOf(pacer, milliseconds(60));
  EXPECT_EQ(pacer.pauseBeforeNextFrame(), milliseconds(60));
  letPass(milliseconds(25));
  EXPECT_EQ(pacer.pauseBeforeNextFrame(), milliseconds(35));
  letPass(milliseconds(35));
  EXPECT_EQ(pacer.pauseBeforeNextFrame(), milliseconds(0));
}

TEST(FramePacer, NeverPausesLongerThanAQuarterOfASecond) {
  Pacer pacer;
  frameOf(pacer, milliseconds(400));
  EXPECT_EQ(pacer.pauseBeforeNextFrame(), milliseconds(250));
  letPass(milliseconds(200));
  EXPECT_EQ(pacer.pauseBeforeNextFrame(), milliseconds(200));
}

TEST(FramePacer, TakesAScreenUpdateWithoutAFrameForNone) {
  Pacer pacer;
  frameOf(pacer, milliseconds(2));
  letPass(milliseconds(50));
  pacer.frameEnds();
  EXPECT_EQ(pacer.pauseBeforeNextFrame(), milliseconds(0));
}

TEST(FramePacer, MeasuresByAClockThatIsNeverSetBack) {
  EXPECT_TRUE((std::is_same_v<FramePacer, BasicFramePacer<std::chrono::steady_clock>>));
  EXPECT_EQ(FramePacer().pauseBeforeNextFrame(), milliseconds(0));
}

}  // namespace
}  // namespace quorvane
