#include <QTest>

#include "WindowTest.h"

namespace quorvane {
namespace {

class FullScreenButton : public WindowTest {
 protected:
  void enterFullScreen() {
    click("buttonFullScreen");
    ASSERT_TRUE(gui::waitUntil([this] { return model().isWindow() && model().isActiveWindow(); }));
  }
  void leaveFullScreen() {
    QTest::keyClick(&model(), Qt::Key_Escape);
    ASSERT_TRUE(gui::waitUntil([this] { return !model().isWindow() && window_->isActiveWindow(); }));
  }
};

TEST_F(FullScreenButton, LeavesARunningModelRunningAndShowsTheStoppedConfiguration) {
  initialise();
  click("buttonRunModel");
  enterFullScreen();
  EXPECT_EQ(model().varMyState, kRunning);
  EXPECT_EQ(model().varInFullScreen, 1);
  EXPECT_TRUE(enabled("buttonRunModel"));
  EXPECT_TRUE(enabled("sliderWidthHeight"));
  EXPECT_TRUE(enabled("buttonRemakeModel"));
  EXPECT_FALSE(enabled("buttonStopModel"));
  leaveFullScreen();
  EXPECT_EQ(model().varMyState, kStopped);
  EXPECT_EQ(model().varInFullScreen, 0);
}

TEST_F(FullScreenButton, SpaceRunsAndStopsThere) {
  initialise();
  enterFullScreen();
  QTest::keyClick(&model(), Qt::Key_Space);
  EXPECT_EQ(model().varMyState, kRunning);
  QTest::keyClick(&model(), Qt::Key_Space);
  EXPECT_EQ(model().varMyState, kStopped);
  leaveFullScreen();
}

TEST_F(FullScreenButton, TheWindowIsAsBeforeAfterwards) {
  initialise();
  enterFullScreen();
  leaveFullScreen();
  EXPECT_EQ(model().geometry(), QRect(11, 29, 624, 526));
  EXPECT_TRUE(gui::waitUntil([this] { return text("statusLine").startsWith("Stopped"); }));
  click("buttonRunModel");
  EXPECT_EQ(model().varMyState, kRunning);
}

}  // namespace
}  // namespace quorvane
