#include <QTest>

#include "WindowManager.h"
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

TEST_F(FullScreenButton, KeepsARunGoingAndShowsTheStoppedConfiguration) {
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

TEST_F(FullScreenButton, RaisesTheViewWhileItFillsTheScreen) {
  initialise();
  enterFullScreen();
  ASSERT_TRUE(gui::switchTo(*window_));
  click("buttonFullScreen");
  EXPECT_TRUE(gui::waitUntil([this] { return model().isActiveWindow() && model().hasFocus(); }));
  leaveFullScreen();
}

TEST_F(FullScreenButton, ShowsALineInTheWindowThatSaysHowToReturn) {
  initialise();
  EXPECT_FALSE(visible("fullScreenNote"));
  enterFullScreen();
  EXPECT_TRUE(visible("fullScreenNote"));
  EXPECT_EQ(text("fullScreenNote"),
            "The lattice fills the screen. Full Screen takes you there, Escape brings it back.");
  const QWidget& note = control("fullScreenNote");
  EXPECT_EQ(note.geometry(), QRect(11, 29, 624, 526));
  EXPECT_LE(note.fontMetrics().horizontalAdvance(text("fullScreenNote")), note.width());
  window_->resize(1300, 800);
  EXPECT_TRUE(gui::waitUntil([&] { return note.geometry() == QRect(11, 29, 744, 566); }));
  leaveFullScreen();
  EXPECT_FALSE(visible("fullScreenNote"));
}

TEST_F(FullScreenButton, LeavesTheFocusOnRunOrStopWhicheverIsEnabled) {
  initialise();
  enterFullScreen();
  leaveFullScreen();
  EXPECT_TRUE(gui::waitUntil([this] { return control("buttonRunModel").hasFocus(); }));

  enterFullScreen();
  ASSERT_TRUE(gui::switchTo(*window_));
  click("buttonRunModel");
  model().exitFullScreenMode();
  EXPECT_TRUE(gui::waitUntil([this] { return control("buttonStopModel").hasFocus(); }));
  EXPECT_EQ(model().varMyState, kRunning);
}

TEST_F(FullScreenButton, RestoresTheWindowAfterwards) {
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
