#include <gtest/gtest.h>

#include "view/FramePacer.h"

namespace quorvane {
namespace {

using std::chrono::milliseconds;

void letPass(milliseconds time) {
  QElapsedTimer timer;
  timer.start();
  while (!timer.hasExpired(time.count())) {
  }
}

void frameOf(FramePacer& pacer, milliseconds cost) {
  pacer.frameBegins();
  letPass(cost);
  pacer.frameEnds();
}

TEST(FramePacer, AsksForNoPauseBeforeTheFirstFrame) {
  EXPECT_EQ(FramePacer().pauseBeforeNextFrame(), milliseconds(0));
}

TEST(FramePacer, AsksForAPauseAsLongAsTheFrameTook) {
  FramePacer pacer;
  frameOf(pacer, milliseconds(60));
  const milliseconds pause = pacer.pauseBeforeNextFrame();
  EXPECT_GT(pause, milliseconds(30));
  letPass(pause);
  EXPECT_EQ(pacer.pauseBeforeNextFrame(), milliseconds(0));
}

TEST(FramePacer, NeverPausesLongerThanAQuarterOfASecond) {
  FramePacer pacer;
  frameOf(pacer, milliseconds(400));
  EXPECT_LE(pacer.pauseBeforeNextFrame(), milliseconds(250));
  EXPECT_GT(pacer.pauseBeforeNextFrame(), milliseconds(150));
}

TEST(FramePacer, TakesAScreenUpdateWithoutAFrameForNone) {
  FramePacer pacer;
  frameOf(pacer, milliseconds(2));
  letPass(milliseconds(50));
  pacer.frameEnds();
  EXPECT_EQ(pacer.pauseBeforeNextFrame(), milliseconds(0));
}

}  // namespace
}  // namespace quorvane
