#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include "Lattices.h"
#include "WindowManager.h"

namespace quorvane {
namespace {

/// A window of 1000 by 800 with a lattice view and a button before and after it in the tab order.
class FullScreen : public ::testing::Test {
 protected:
  void SetUp() override {
    window_.resize(1000, 800);
    before_ = new QPushButton(&window_);
    view_ = new GraphicalLatticeModelGL(&window_);
    after_ = new QPushButton(&window_);
    before_->move(600, 10);
    after_->move(600, 60);
    fillLattice(*view_, 4, 74, 74, scatteredTypes(4));
    view_->setSimulationSpeed(1'000'000'000);
    ASSERT_TRUE(gui::showAndActivate(window_));
  }

  void enter() {
    view_->setFullScreen(1);
    view_->enterFullScreenMode();
    ASSERT_TRUE(
        gui::waitUntil([&] { return fillsScreen() && view_->hasFocus() && view_->isActiveWindow(); }));
    ASSERT_TRUE(gui::waitUntil([&] { return view_->getWidth() == screen().width(); }));
  }

  static QRect screen() { return QGuiApplication::primaryScreen()->geometry(); }
  bool fillsScreen() const {
    return view_->isWindow() && view_->isVisible() && view_->geometry() == screen();
  }
  bool isBack() const { return !view_->isWindow() && view_->isVisible() && view_->window() == &window_; }

  /// The frame at this size equals that of a view that always had it.
  ::testing::AssertionResult showsLattice() {
    return gui::samePixels(gui::frameOf(*view_), opaqueFrame(*view_, view_->width(), view_->height()));
  }

  QWidget window_;
  QPushButton* before_ = nullptr;
  GraphicalLatticeModelGL* view_ = nullptr;
  QPushButton* after_ = nullptr;
};

TEST_F(FullScreen, FillsThePrimaryScreenAndTakesTheFocus) {
  enter();
  EXPECT_EQ(view_->parentWidget(), &window_);
  EXPECT_EQ(view_->getHeight(), screen().height());
  EXPECT_EQ(QGuiApplication::focusWindow(), view_->windowHandle());
}

TEST_F(FullScreen, ShowsTheLatticeInFullSizeAndBackInTheWindow) {
  EXPECT_TRUE(showsLattice());
  for (int round = 0; round < 2; ++round) {
    enter();
    EXPECT_TRUE(showsLattice());
    EXPECT_TRUE(
        gui::waitUntil([&] { return bool(gui::samePixels(gui::screenOf(*view_), gui::frameOf(*view_))); }));
    view_->exitFullScreenMode();
    ASSERT_TRUE(gui::waitUntil([&] { return view_->getWidth() == 444.0; }));
    EXPECT_EQ(view_->geometry(), QRect(11, 29, 444, 566));
    EXPECT_TRUE(showsLattice());
    EXPECT_TRUE(gui::waitUntil([&] {
      const QImage shown = gui::screenOf(window_).copy(view_->geometry());
      return bool(gui::samePixels(shown, gui::frameOf(*view_)));
    }));
  }
}

TEST_F(FullScreen, IsNotAffectedByAResizeOfTheWindowWhichAppliesAfterwards) {
  enter();
  window_.resize(900, 700);
  ASSERT_TRUE(gui::waitUntil([&] { return window_.size() == QSize(900, 700); }));
  gui::processEvents();
  EXPECT_TRUE(fillsScreen());
  view_->windowResized();
  EXPECT_TRUE(fillsScreen());
  view_->exitFullScreenMode();
  EXPECT_EQ(view_->geometry(), QRect(11, 29, 344, 466));
  window_.resize(1100, 800);
  EXPECT_TRUE(gui::waitUntil([&] { return view_->geometry() == QRect(11, 29, 544, 566); }));
}

TEST_F(FullScreen, LeavesOnceAndSignalsOnce) {
  QSignalSpy left(view_, &GraphicalLatticeModelGL::fullScreenLeft);
  view_->exitFullScreenMode();
  EXPECT_EQ(left.count(), 0);
  enter();
  view_->enterFullScreenMode();
  EXPECT_TRUE(fillsScreen());
  view_->exitFullScreenMode();
  EXPECT_EQ(left.count(), 1);
  EXPECT_TRUE(isBack());
  view_->exitFullScreenMode();
  EXPECT_EQ(left.count(), 1);
}

TEST_F(FullScreen, IsRaisedWhenItIsEnteredAgainFromBehindAnotherWindow) {
  QSignalSpy entered(view_, &GraphicalLatticeModelGL::fullScreenEntered);
  enter();
  ASSERT_TRUE(gui::switchTo(window_));
  view_->enterFullScreenMode();
  EXPECT_TRUE(gui::waitUntil([&] { return view_->isActiveWindow() && view_->hasFocus(); }));
  EXPECT_TRUE(fillsScreen());
  EXPECT_EQ(entered.count(), 1);
  // Also visibly: the screen shows the view at the place of the window.
  EXPECT_TRUE(gui::waitUntil([&] {
    const QImage screenshot = view_->screen()->grabWindow(0).toImage().convertToFormat(QImage::Format_RGB32);
    return bool(gui::samePixels(screenshot, gui::frameOf(*view_)));
  }));
}

TEST_F(FullScreen, StillReportsItsPlaceInTheWindow) {
  enter();
  EXPECT_EQ(view_->placeInWindow(), QRect(11, 29, 444, 566));
  window_.resize(900, 700);
  ASSERT_TRUE(gui::waitUntil([&] { return window_.size() == QSize(900, 700); }));
  EXPECT_EQ(view_->placeInWindow(), QRect(11, 29, 344, 466));
}

TEST_F(FullScreen, KeepsTheTabOrder) {
  ASSERT_EQ(before_->nextInFocusChain(), view_);
  enter();
  view_->exitFullScreenMode();
  EXPECT_EQ(before_->nextInFocusChain(), view_);
  EXPECT_EQ(view_->nextInFocusChain(), after_);
}

TEST_F(FullScreen, EscapeStopsTheRunAndLeaves) {
  enter();
  view_->runLatticeModelInBackground();
  QSignalSpy left(view_, &GraphicalLatticeModelGL::fullScreenLeft);
  QTest::keyClick(view_->windowHandle(), Qt::Key_Escape);
  EXPECT_EQ(view_->varMyState, kStopped);
  EXPECT_EQ(view_->varInFullScreen, 0);
  EXPECT_EQ(left.count(), 1);
  EXPECT_TRUE(isBack());
}

TEST_F(FullScreen, ClosingItActsAsEscape) {
  enter();
  view_->runLatticeModelInBackground();
  view_->windowHandle()->close();
  ASSERT_TRUE(gui::waitUntil([&] { return isBack(); }));
  EXPECT_EQ(view_->varMyState, kStopped);
  EXPECT_EQ(view_->varInFullScreen, 0);
  EXPECT_TRUE(window_.isVisible());
  ASSERT_TRUE(gui::waitUntil([&] { return view_->getWidth() == 444.0; }));
  EXPECT_TRUE(showsLattice());
}

TEST_F(FullScreen, IsPaintedOnInItsOwnCoordinates) {
  enter();
  view_->setPaintbrushColor(1);
  const double spacing = view_->varSiteSpacing;
  fillLattice(*view_, 4, 74, 74, [](int, int) { return 0; });
  gui::click(*view_, gui::pixelAt(*view_, 40.5 * spacing, 20.5 * spacing));
  EXPECT_EQ(view_->getSiteValue(40, 20), 1);
}

TEST_F(FullScreen, LeftDuringAStrokeEndsTheStroke) {
  enter();
  view_->setPauseWhilePaint(1);
  gui::press(*view_, QPoint(50, 50));
  ASSERT_EQ(view_->varMyState, kPausedForPainting);
  view_->keyDown(53);
  EXPECT_EQ(view_->varPainting, 0);
  EXPECT_EQ(view_->varMyState, kStopped);
}

TEST_F(FullScreen, KeepsARunGoing) {
  view_->runLatticeModelInBackground();
  enter();
  EXPECT_EQ(view_->varMyState, kRunning);
  const std::int64_t before = view_->sweepsDone();
  EXPECT_TRUE(gui::waitUntil([&] { return view_->sweepsDone() > before; }));
  view_->exitFullScreenMode();
  EXPECT_EQ(view_->varMyState, kRunning);
}

TEST_F(FullScreen, ClosesWithItsWindow) {
  auto window = std::make_unique<QWidget>();
  window->resize(1000, 800);
  QPointer<GraphicalLatticeModelGL> view = new GraphicalLatticeModelGL(window.get());
  ASSERT_TRUE(gui::showAndActivate(*window));
  fillLattice(*view, 2, 50, 50, scatteredTypes(2));
  view->enterFullScreenMode();
  ASSERT_TRUE(gui::waitUntil([&] { return view->getWidth() == screen().width(); }));
  view->runLatticeModelInBackground();
  window.reset();
  EXPECT_TRUE(view.isNull());
}

TEST(FullScreenOfAWindow, GivesTheViewItsOldPlaceBack) {
  auto view = shownView(300, 200);
  const QRect place = view->geometry();
  view->enterFullScreenMode();
  ASSERT_TRUE(gui::waitUntil([&] { return view->getWidth() == view->screen()->geometry().width(); }));
  view->exitFullScreenMode();
  EXPECT_TRUE(gui::waitUntil([&] { return view->geometry() == place && view->getWidth() == 300.0; }));
}

}  // namespace
}  // namespace quorvane
