#include <QApplication>

#include "MenuSupport.h"

namespace quorvane {
namespace {

using Entries = QList<QPair<QString, bool>>;

class LatticeMenuTest : public WindowTest {
 protected:
  void oneSweep(QWidget& focus) { QTest::keyClick(&focus, Qt::Key_Right, Qt::ControlModifier); }
  QMenu* menu() {
    gui::rightClick(model());
    return gui::openMenu();
  }
  static Entries entries(bool sweep, bool picture) {
    return {{"One Sweep", sweep}, {"Copy Picture", picture}, {"Save Picture…", picture}};
  }
  int sitesOf(int type) {
    int sites = 0;
    for (int i = 0; i < model().getIMax(); ++i)
      for (int j = 0; j < model().getJMax(); ++j) sites += model().getSiteValue(i, j) == type;
    return sites;
  }
};

TEST_F(LatticeMenuTest, OpensByTheRightButtonWithItsShortcuts) {
  initialise();
  QMenu* opened = menu();
  ASSERT_NE(opened, nullptr);
  EXPECT_EQ(opened->accessibleName(), "Lattice");
  EXPECT_EQ(gui::entriesOf(*opened), entries(true, true));
  QStringList shortcuts;
  for (const QAction* action : opened->actions())
    if (!action->isSeparator()) {
      EXPECT_TRUE(action->isShortcutVisibleInContextMenu());
      shortcuts += action->shortcut().toString();
    }
  EXPECT_EQ(shortcuts, QStringList({"Ctrl+Right", "Ctrl+Shift+C", "Ctrl+Shift+P"}));
  gui::choose(*opened, "actionOneSweep");
  EXPECT_EQ(model().sweepsDone(), 1);
}

TEST_F(LatticeMenuTest, OpensByTheMenuKeyWhileTheViewHasTheFocus) {
  initialise();
  model().setFocus();
  gui::pressMenuKey(model());
  QMenu* opened = gui::openMenu();
  ASSERT_NE(opened, nullptr);
  QTest::keyClick(opened, Qt::Key_Down);
  QTest::keyClick(opened, Qt::Key_Return);
  EXPECT_EQ(model().sweepsDone(), 1);
}

TEST_F(LatticeMenuTest, OpensByShiftAndF10OnlyWhileTheViewHasTheFocus) {
  initialise();
  model().setFocus();
  QTest::keyClick(&model(), Qt::Key_F10, Qt::ShiftModifier);
  QMenu* opened = gui::openMenu();
  ASSERT_NE(opened, nullptr);
  EXPECT_EQ(opened->objectName(), "menuLattice");
  opened->close();
  control("plotPopulations").setFocus();
  QTest::keyClick(&control("plotPopulations"), Qt::Key_F10, Qt::ShiftModifier);
  opened = gui::openMenu();
  ASSERT_NE(opened, nullptr);
  EXPECT_EQ(opened->objectName(), "menuPlot");
  opened->close();
  control("buttonRunModel").setFocus();
  QTest::keyClick(&control("buttonRunModel"), Qt::Key_F10, Qt::ShiftModifier);
  gui::processEvents();
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(LatticeMenuTest, EnablesOnlyApplicableEntries) {
  QMenu* opened = menu();
  ASSERT_NE(opened, nullptr);
  EXPECT_EQ(gui::entriesOf(*opened), entries(false, false)) << "no model yet";
  opened->close();
  initialise();
  click("buttonRunModel");
  opened = menu();
  ASSERT_NE(opened, nullptr);
  EXPECT_EQ(gui::entriesOf(*opened), entries(false, true)) << "running";
  opened->close();
  click("buttonStopModel");
  opened = menu();
  ASSERT_NE(opened, nullptr);
  EXPECT_EQ(gui::entriesOf(*opened), entries(true, true)) << "stopped again";
  opened->close();
}

TEST_F(LatticeMenuTest, OneSweepAddsOnePointToThePlotAndOneToTheCount) {
  initialise();
  for (int sweep = 1; sweep <= 3; ++sweep) {
    oneSweep(control("buttonRunModel"));
    EXPECT_EQ(text("statusLine"), QString("Stopped  ·  %1 sweeps  ·  124 × 104 sites").arg(sweep));
    EXPECT_EQ(window_->plot().numPoints(), sweep);
    gui::frameOf(model());
    gui::processEvents();
    EXPECT_EQ(window_->plot().numPoints(), sweep) << "the redraw adds none";
  }
}

TEST_F(LatticeMenuTest, OneSweepIsDrawn) {
  initialise();
  addRule("grow", "Irreversible Flip", "0 - Pixel", "1 - Pixel");
  model().setRuleParam(0, 1.0);
  const QImage before = gui::frameOf(model());
  oneSweep(control("buttonRunModel"));
  EXPECT_TRUE(
      gui::waitUntil([&] { return model().grabFramebuffer().convertToFormat(before.format()) != before; }));
}

TEST_F(LatticeMenuTest, OneSweepDoesNothingWithoutAModelOrDuringARun) {
  oneSweep(*window_);
  EXPECT_EQ(model().sweepsDone(), 0);
  EXPECT_EQ(window_->plot().numPoints(), 0);
  initialise();
  model().varMyState = kRunning;  // without a loop
  oneSweep(control("buttonRunModel"));
  EXPECT_EQ(model().sweepsDone(), 0);
  model().varMyState = kStopped;
  click("checkPauseWhilePaint");
  gui::press(model(), {10, 10});
  oneSweep(model());
  EXPECT_EQ(model().sweepsDone(), 0) << "paused for painting";
  gui::release(model(), {10, 10});
  oneSweep(model());
  EXPECT_EQ(model().sweepsDone(), 1);
}

TEST_F(LatticeMenuTest, ControlRightMovesByAWordInATextField) {
  initialise();
  type("textPixelName", "two words");
  QTest::keyClick(&control("textPixelName"), Qt::Key_Home);
  oneSweep(control("textPixelName"));
  EXPECT_EQ(get<QLineEdit>("textPixelName").cursorPosition(), 4);
  EXPECT_EQ(model().sweepsDone(), 0);
}

TEST_F(LatticeMenuTest, ControlRightStillMovesASlider) {
  initialise();
  const double before = slider("sliderSimulationSpeed").value();
  key("sliderSimulationSpeed", Qt::Key_Right, 1, Qt::ControlModifier);
  EXPECT_GT(slider("sliderSimulationSpeed").value(), before);
  EXPECT_EQ(model().sweepsDone(), 0);
}

TEST_F(LatticeMenuTest, ControlRightSweepsWithAListFocusedButNotWithOneOpen) {
  initialise();
  key("listPaintType", Qt::Key_Right, 1, Qt::ControlModifier);
  EXPECT_EQ(model().sweepsDone(), 1);
  gui::click(list("listPaintType"), list("listPaintType").rect().center());
  ASSERT_TRUE(gui::waitUntil([] { return QApplication::activePopupWidget() != nullptr; }));
  oneSweep(*QApplication::activePopupWidget());
  EXPECT_EQ(model().sweepsDone(), 1);
  while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
}

TEST_F(LatticeMenuTest, WorksInFullScreen) {
  initialise();
  click("buttonFullScreen");
  ASSERT_TRUE(gui::waitUntil([this] { return model().isWindow() && model().isActiveWindow(); }));
  oneSweep(model());
  EXPECT_EQ(model().sweepsDone(), 1);
  EXPECT_EQ(window_->plot().numPoints(), 1);
  QMenu* opened = menu();
  ASSERT_NE(opened, nullptr);
  EXPECT_EQ(gui::entriesOf(*opened), entries(true, true));
  gui::choose(*opened, "actionOneSweep");
  EXPECT_EQ(model().sweepsDone(), 2);
  QTest::keyClick(&model(), Qt::Key_Escape);
  ASSERT_TRUE(gui::waitUntil([this] { return !model().isWindow() && window_->isActiveWindow(); }));
  oneSweep(*window_);
  EXPECT_EQ(model().sweepsDone(), 3);
}

TEST_F(LatticeMenuTest, TheRightButtonPaintsNothing) {
  initialise();
  for (int i = 0; i < model().getIMax(); ++i)
    for (int j = 0; j < model().getJMax(); ++j) model().setSiteValue(i, j, 1);
  QMenu* opened = menu();
  ASSERT_NE(opened, nullptr);
  EXPECT_EQ(model().varPainting, 0);
  EXPECT_EQ(sitesOf(0), 0);
  // A click outside the menu closes it and has no other effect.
  QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                    model().mapTo(window_.get(), QPoint(20, 20)));
  EXPECT_TRUE(gui::waitUntil([] { return QApplication::activePopupWidget() == nullptr; }));
  gui::processEvents();
  EXPECT_EQ(model().varPainting, 0);
  EXPECT_EQ(sitesOf(0), 0);
}

TEST_F(LatticeMenuTest, TheRightButtonDoesNotEndAStroke) {
  initialise();
  click("checkPauseWhilePaint");
  gui::pressInWindow(model(), Qt::LeftButton);
  ASSERT_EQ(model().varPainting, 1);
  gui::rightClick(model());
  gui::processEvents();
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(model().varPainting, 1);
  EXPECT_EQ(model().varMyState, kPausedForPainting);
  QTest::keyClick(&model(), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "no panel during a stroke";
  gui::releaseInWindow(model(), Qt::LeftButton);
  EXPECT_EQ(model().varPainting, 0);
  EXPECT_EQ(model().varMyState, kStopped);
}

}  // namespace
}  // namespace quorvane
