#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

#include "Lattices.h"

namespace quorvane {
namespace {

constexpr int kSpaceBar = 49;
constexpr int kEscape = 53;

/// A small view with the full-screen flag set, which is all that the keys depend on.
std::unique_ptr<GraphicalLatticeModelGL> viewWithKeys() {
  auto view = shownView(100, 100);
  fillLattice(*view, 2, 10, 10, scatteredTypes(2));
  view->setSimulationSpeed(1'000'000'000);
  view->setFullScreen(1);
  return view;
}

TEST(Keyboard, SpaceRunsAndStops) {
  auto view = viewWithKeys();
  view->keyDown(kSpaceBar);
  EXPECT_EQ(view->varMyState, kRunning);
  EXPECT_TRUE(gui::waitUntil([&] { return view->sweepsDone() > 3; }));
  view->keyDown(kSpaceBar);
  EXPECT_EQ(view->varMyState, kStopped);
  EXPECT_EQ(view->varInFullScreen, 1);
}

TEST(Keyboard, SpaceRunsAModelThatAStrokePauses) {
  auto view = viewWithKeys();
  view->varMyState = kPausedForPainting;
  view->keyDown(kSpaceBar);
  EXPECT_EQ(view->varMyState, kRunning);
}

TEST(Keyboard, EscapeStopsARunAndLeavesFullScreen) {
  auto view = viewWithKeys();
  view->runLatticeModelInBackground();
  view->keyDown(kEscape);
  EXPECT_EQ(view->varMyState, kStopped);
  EXPECT_EQ(view->varInFullScreen, 0);
}

TEST(Keyboard, EscapeLeavesAnyOtherStateAsItIs) {
  auto view = viewWithKeys();
  view->varMyState = kPausedForPainting;
  view->keyDown(kEscape);
  EXPECT_EQ(view->varMyState, kPausedForPainting);
  EXPECT_EQ(view->varInFullScreen, 0);
}

TEST(Keyboard, WorksInFullScreenOnly) {
  auto view = viewWithKeys();
  for (const int flag : {0, 2}) {
    view->setFullScreen(flag);
    view->keyDown(kSpaceBar);
    EXPECT_EQ(view->varMyState, kStopped);
    view->varMyState = kRunning;
    view->keyDown(kSpaceBar);
    view->keyDown(kEscape);
    EXPECT_EQ(view->varMyState, kRunning);
    EXPECT_EQ(view->varInFullScreen, flag);
    view->varMyState = kStopped;
  }
}

TEST(Keyboard, IgnoresEveryOtherKey) {
  auto view = viewWithKeys();
  for (int code = -1; code < 256; ++code) {
    if (code == kSpaceBar || code == kEscape) continue;
    view->keyDown(code);
    ASSERT_EQ(view->varMyState, kStopped) << code;
    ASSERT_EQ(view->varInFullScreen, 1) << code;
  }
}

TEST(Keyboard, HandlesTheSpaceBarAndEscapeOfTheWindow) {
  auto view = viewWithKeys();
  QTest::keyClick(view->windowHandle(), Qt::Key_Space);
  EXPECT_EQ(view->varMyState, kRunning);
  // A press within the millisecond of the last release counts as a repeat; no user is that fast.
  constexpr int milliseconds = 5;
  QTest::qWait(milliseconds);
  QTest::keyClick(view->windowHandle(), Qt::Key_Space);
  EXPECT_EQ(view->varMyState, kStopped);
  QTest::keyClick(view->windowHandle(), Qt::Key_A);
  EXPECT_EQ(view->varInFullScreen, 1);
  QTest::keyClick(view->windowHandle(), Qt::Key_Escape);
  EXPECT_EQ(view->varInFullScreen, 0);
}

TEST(Keyboard, CountsAHeldSpaceBarAsOnePress) {
  auto view = viewWithKeys();
  QTest::keyPress(view.get(), Qt::Key_Space);
  QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), true);
  QApplication::sendEvent(view.get(), &repeat);
  EXPECT_EQ(view->varMyState, kRunning);
  view->stopLatticeModel();
}

/// A key event of the space bar with a time stamp of the window system.
void sendSpace(QWidget& view, QEvent::Type type, quint64 milliseconds) {
  QKeyEvent event(type, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
  event.setTimestamp(milliseconds);
  QApplication::sendEvent(&view, &event);
}

TEST(Keyboard, CountsAHeldSpaceBarAsOnePressIfRepeatsAreNotMarked) {
  auto view = viewWithKeys();
  sendSpace(*view, QEvent::KeyPress, 1000);
  for (const quint64 time : {1660, 1700, 1740}) {
    sendSpace(*view, QEvent::KeyRelease, time);
    sendSpace(*view, QEvent::KeyPress, time);
    EXPECT_EQ(view->varMyState, kRunning) << time;
  }
  sendSpace(*view, QEvent::KeyRelease, 1750);
  sendSpace(*view, QEvent::KeyPress, 1751);
  EXPECT_EQ(view->varMyState, kStopped);
}

TEST(Keyboard, CountsPressesWithoutATimeStamp) {
  auto view = viewWithKeys();
  for (const int state : {kRunning, kStopped, kRunning, kStopped}) {
    sendSpace(*view, QEvent::KeyPress, 0);
    EXPECT_EQ(view->varMyState, state);
    sendSpace(*view, QEvent::KeyRelease, 0);
  }
}

TEST(Keyboard, CountsAHeldKeyOfTheWindowSystemAsOnePress) {
  auto view = viewWithKeys();
  const auto tool = [](const QStringList& arguments) { return QProcess::execute("xdotool", arguments); };
  ASSERT_EQ(tool({"keydown", "space"}), 0);
  EXPECT_TRUE(gui::waitUntil([&] { return view->varMyState == kRunning; }));
  // Repeats start after two thirds of a second and come 25 times per second.
  EXPECT_FALSE(gui::waitUntil([&] { return view->varMyState != kRunning; }, std::chrono::milliseconds(1500)));
  ASSERT_EQ(tool({"keyup", "space"}), 0);
  ASSERT_EQ(tool({"key", "space"}), 0);
  EXPECT_TRUE(gui::waitUntil([&] { return view->varMyState == kStopped; }));
}

/// Records the keys that its children pass on.
class KeyCatcher : public QWidget {
 public:
  int caught = 0;

 protected:
  void keyPressEvent(QKeyEvent*) override { ++caught; }
};

TEST(Keyboard, PassesNoKeyOn) {
  KeyCatcher window;
  window.resize(1000, 800);
  auto* view = new GraphicalLatticeModelGL(&window);
  ASSERT_TRUE(gui::showAndActivate(window));
  view->setFocus();
  for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Escape, Qt::Key_X}) QTest::keyClick(view, key);
  EXPECT_EQ(window.caught, 0);
}

TEST(Keyboard, TabStillMovesTheFocus) {
  QWidget window;
  window.resize(1000, 800);
  auto* view = new GraphicalLatticeModelGL(&window);
  auto* text = new QLineEdit(&window);
  ASSERT_TRUE(gui::showAndActivate(window));
  view->setFocus();
  ASSERT_TRUE(view->hasFocus());
  QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
  EXPECT_TRUE(text->hasFocus());
  QTest::keyClick(window.windowHandle(), Qt::Key_Tab, Qt::ShiftModifier);
  EXPECT_TRUE(view->hasFocus());
}

}  // namespace
}  // namespace quorvane
