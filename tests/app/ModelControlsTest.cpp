#include <QApplication>
#include <QProcess>
#include <QTest>

#include "WindowTest.h"
#include "app/AppDelegate.h"

namespace quorvane {
namespace {

class ModelControls : public WindowTest {
 protected:
  void resizeView(int width, int height) {
    window_->resize(width + 556, height + 234);
    ASSERT_TRUE(gui::waitUntil([&] { return model().getWidth() == width && model().getHeight() == height; }));
  }
  bool runningConfiguration() {
    return !enabled("buttonRunModel") && !enabled("sliderWidthHeight") && !enabled("buttonRemakeModel") &&
           enabled("buttonStopModel");
  }
  bool stoppedConfiguration() {
    return enabled("buttonRunModel") && enabled("sliderWidthHeight") && enabled("buttonRemakeModel") &&
           !enabled("buttonStopModel");
  }
};

TEST_F(ModelControls, InitialiseAndRemakeMoveTheFocusToRun) {
  initialise();
  EXPECT_TRUE(control("buttonRunModel").hasFocus());
  control("textPixelName").setFocus();
  click("buttonRemakeModel");
  EXPECT_TRUE(control("buttonRunModel").hasFocus());
  // So one key takes the next step.
  QTest::keyClick(window_->windowHandle(), Qt::Key_Space);
  EXPECT_EQ(model().varMyState, kRunning);
}

/// A key event of the space bar with a time stamp of the window system.
void sendSpace(QWidget& widget, QEvent::Type type, quint64 milliseconds) {
  QKeyEvent event(type, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
  event.setTimestamp(milliseconds);
  QApplication::sendEvent(&widget, &event);
}

TEST_F(ModelControls, ASpaceBarHeldOnFullScreenDoesNotStartARunThere) {
  initialise();
  control("buttonFullScreen").setFocus();
  sendSpace(control("buttonFullScreen"), QEvent::KeyPress, 1000);
  sendSpace(control("buttonFullScreen"), QEvent::KeyRelease, 1660);
  ASSERT_TRUE(gui::waitUntil([this] { return model().isWindow() && model().isActiveWindow(); }));
  for (const quint64 time : {1660, 1700}) {
    sendSpace(model(), QEvent::KeyPress, time);
    EXPECT_EQ(model().varMyState, kStopped);
    sendSpace(model(), QEvent::KeyRelease, time + 40);
  }
  sendSpace(model(), QEvent::KeyPress, 3000);
  EXPECT_EQ(model().varMyState, kRunning);
}

TEST_F(ModelControls, ASpaceBarHeldInATextFieldRepeatsButOneHeldBeforeItDoesNot) {
  initialise();
  control("textPixelName").setFocus();
  get<QLineEdit>("textPixelName").clear();
  sendSpace(control("textPixelName"), QEvent::KeyPress, 1000);
  sendSpace(control("textPixelName"), QEvent::KeyRelease, 1660);
  sendSpace(control("textPixelName"), QEvent::KeyPress, 1660);
  sendSpace(control("textPixelName"), QEvent::KeyRelease, 1700);
  EXPECT_EQ(text("textPixelName"), "  ");
  sendSpace(control("checkPauseWhilePaint"), QEvent::KeyPress, 2000);
  sendSpace(control("checkPauseWhilePaint"), QEvent::KeyRelease, 2660);
  sendSpace(control("textPixelName"), QEvent::KeyPress, 2660);
  EXPECT_EQ(text("textPixelName"), "  ");
}

TEST_F(ModelControls, AHeldSpaceBarPressesRunAndNotStopAfterIt) {
  initialise();
  const auto tool = [](const QStringList& arguments) { return QProcess::execute("xdotool", arguments); };
  bool ran = false;
  const auto stoppedAfterwards = [&] {
    ran = ran || model().varMyState == kRunning;
    return ran && model().varMyState != kRunning;
  };
  ASSERT_EQ(tool({"keydown", "space"}), 0);
  // Repeats start after two thirds of a second and come 25 times per second.
  EXPECT_FALSE(gui::waitUntil(stoppedAfterwards, std::chrono::milliseconds(1500)));
  ASSERT_EQ(tool({"keyup", "space"}), 0);
  EXPECT_TRUE(gui::waitUntil([this] { return model().varMyState == kRunning; }));
  EXPECT_FALSE(gui::waitUntil(stoppedAfterwards, std::chrono::milliseconds(300)));
}

TEST_F(ModelControls, SteppingChangesOnlyTheTextBesideIt) {
  auto& stepper = get<Stepper>("stepperNumPixelTypes");
  gui::click(stepper, QPoint(stepper.width() / 2, stepper.height() / 4));
  EXPECT_EQ(text("textNumPixelTypes"), "3");
  gui::click(stepper, QPoint(stepper.width() / 2, stepper.height() * 3 / 4));
  EXPECT_EQ(text("textNumPixelTypes"), "2");
  key("stepperNumPixelTypes", Qt::Key_Up, 20);
  EXPECT_EQ(text("textNumPixelTypes"), "10");
  EXPECT_EQ(model().getNumPixelTypes(), 1);
}

TEST_F(ModelControls, InitialiseSizesTheLatticeFromTheViewAndTheDensity) {
  resizeView(800, 600);
  click("buttonInitialiseModel");
  EXPECT_EQ(model().getIMax(), 159);
  EXPECT_EQ(model().getJMax(), 119);
  EXPECT_EQ(model().getNumPixelTypes(), 2);
  EXPECT_EQ(model().varMyState, kStopped);
}

TEST_F(ModelControls, InitialiseLimitsTheLongerSide) {
  key("sliderWidthHeight", Qt::Key_Right, 100);
  ASSERT_EQ(text("textWidthHeight"), "200");
  resizeView(600, 800);
  click("buttonInitialiseModel");
  EXPECT_EQ(model().getIMax(), 190);
  EXPECT_EQ(model().getJMax(), 254);
}

TEST_F(ModelControls, InitialiseUsesTheActualSizeOfTheView) {
  initialise();
  EXPECT_EQ(model().getIMax(), 124);
  EXPECT_EQ(model().getJMax(), 104);
}

TEST_F(ModelControls, InitialiseEnablesTheControlsForGood) {
  initialise(3);
  for (const char* name : {"buttonInitialiseModel", "stepperNumPixelTypes", "buttonOpenSystem",
                           "buttonStopModel", "listSelectedRule", "buttonDelRule"})
    EXPECT_FALSE(enabled(name)) << name;
  for (const char* name :
       {"buttonRemakeModel", "buttonAddNewRule", "buttonAddNewPixel", "buttonSaveSystem",
        "listSelectPixelType", "textPixelName", "sliderSelectedPixelTrans", "sliderSelectedPixelPersistence",
        "checkImmobilePixel", "colorSelectedPixelColor", "sliderPixelField", "buttonZeroPixelField",
        "listNewRulePixelA", "listNewRulePixelB", "listPaintType", "checkPauseWhilePaint", "buttonRunModel",
        "buttonFullScreen"})
    EXPECT_TRUE(enabled(name)) << name;
  const QStringList types = {"0 - Pixel", "1 - Pixel", "2 - Pixel"};
  EXPECT_EQ(items("listPaintType"), types);
  EXPECT_EQ(items("listSelectPixelType"), types);
  EXPECT_EQ(items("listSelectedRuleFacPixel"), types);
  EXPECT_EQ(items("listNewRulePixelA"), QStringList({kAny}) + types);
  EXPECT_EQ(items("listNewRulePixelB"), QStringList({kAny}) + types);
  for (const char* name : {"listPaintType", "listSelectPixelType", "listNewRulePixelA", "listNewRulePixelB"})
    EXPECT_EQ(list(name).currentIndex(), 0) << name;

  enter("textPixelName", "mine");
  gui::click(control("buttonInitialiseModel"), QPoint(8, 8));
  EXPECT_EQ(model().getPixelName(0), "mine");
  click("buttonRunModel");
  click("buttonStopModel");
  click("buttonRemakeModel");
  EXPECT_FALSE(enabled("buttonInitialiseModel"));
  EXPECT_FALSE(enabled("buttonOpenSystem"));
}

TEST_F(ModelControls, ShowsTheFirstLatticeAtOnce) {
  initialise();
  // Only type 0 is black.
  EXPECT_TRUE(gui::waitUntil([this] { return !gui::screenOf(*window_).copy(model().geometry()).allGray(); }));
}

TEST_F(ModelControls, AwakeningKeepsAddPixelDisabledAtTenTypes) {
  initialise(10);
  EXPECT_FALSE(enabled("buttonAddNewPixel"));
  get<QPushButton>("buttonAddNewPixel").setEnabled(true);
  window_->controller().awakenControls();
  EXPECT_TRUE(enabled("buttonAddNewPixel"));
}

TEST_F(ModelControls, MovingTheDensityChangesOnlyItsTextUntilRemake) {
  initialise();
  const int imax = model().getIMax();
  key("sliderWidthHeight", Qt::Key_Left, 50);
  EXPECT_EQ(text("textWidthHeight"), "50");
  EXPECT_EQ(model().getIMax(), imax);
  click("buttonRemakeModel");
  EXPECT_EQ(model().getIMax(), 62);
  EXPECT_EQ(model().getJMax(), 52);
}

TEST_F(ModelControls, RemakeKeepsRulesTypesAndSelectionsAndRefillsTheLattice) {
  initialise(3);
  addRule("grow", "Irreversible Flip", "0 - Pixel", "2 - Pixel");
  addRule("mix", "Swap", kAny, "1 - Pixel");
  choose("listSelectPixelType", "1 - Pixel");
  enter("textPixelName", "wall");
  choose("listSelectedRule", "0 - grow");
  slideTo("sliderSelectedRuleParam", 0.25);
  const Rgb color = colorOf(2);
  std::vector<int> before;
  for (int i = 0; i < 50; ++i) before.push_back(model().getSiteValue(i, i));

  click("buttonRemakeModel");
  std::vector<int> after;
  for (int i = 0; i < 50; ++i) after.push_back(model().getSiteValue(i, i));
  EXPECT_NE(before, after);
  EXPECT_EQ(model().getNumRules(), 2);
  EXPECT_EQ(model().getRuleName(0), "grow");
  EXPECT_EQ(model().getRuleParam(0), 0.25);
  EXPECT_EQ(model().getNumPixelTypes(), 3);
  EXPECT_EQ(model().getPixelName(1), "wall");
  EXPECT_EQ(colorOf(2), color);
  EXPECT_EQ(list("listSelectedRule").currentText(), "0 - grow");
  EXPECT_EQ(list("listSelectPixelType").currentText(), "1 - wall");
}

TEST_F(ModelControls, RunAndStopSwitchTheConfigurations) {
  initialise();
  click("buttonRunModel");
  EXPECT_TRUE(runningConfiguration());
  EXPECT_EQ(model().varMyState, kRunning);
  EXPECT_TRUE(enabled("buttonSaveSystem"));
  EXPECT_TRUE(gui::waitUntil([this] { return model().sweepsDone() > 2; }));
  click("buttonStopModel");
  EXPECT_TRUE(stoppedConfiguration());
  EXPECT_EQ(model().varMyState, kStopped);
  click("buttonRunModel");
  EXPECT_TRUE(runningConfiguration());
  EXPECT_EQ(model().varMyState, kRunning);
}

TEST_F(ModelControls, TheSpaceBarAlternatelyRunsAndStops) {
  initialise();
  key("buttonRunModel", Qt::Key_Space);
  EXPECT_TRUE(runningConfiguration());
  EXPECT_TRUE(control("buttonStopModel").hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_TRUE(stoppedConfiguration());
  EXPECT_TRUE(control("buttonRunModel").hasFocus());
}

TEST_F(ModelControls, RunAndStopDoNotTakeTheFocusOfOtherControls) {
  initialise();
  for (const char* button : {"buttonRunModel", "buttonStopModel"}) {
    // As on desktops where clicking a button does not move the focus.
    control(button).setFocusPolicy(Qt::TabFocus);
    control("textPixelName").setFocus();
    click(button);
    EXPECT_TRUE(control("textPixelName").hasFocus()) << button;
  }
}

TEST_F(ModelControls, ARunIsShownOnTheScreen) {
  initialise();
  addRule("shrink", "Irreversible Flip", "1 - Pixel", "0 - Pixel");
  key("sliderSelectedRuleParam", Qt::Key_End);
  key("sliderSimulationSpeed", Qt::Key_End);
  click("buttonRunModel");
  EXPECT_TRUE(gui::waitUntil([this] { return gui::frameOf(model()).allGray(); }));
}

TEST_F(ModelControls, TheSpeedSliderSetsAWholeNumber) {
  key("sliderSimulationSpeed", Qt::Key_Right);
  const int faster = model().varDelayAfterCycle;
  EXPECT_GT(faster, 1000);
  EXPECT_EQ(faster, slider("sliderSimulationSpeed").intValue());
  EXPECT_EQ(text("textSimulationSpeed"), QLocale().toString(faster));
  key("sliderSimulationSpeed", Qt::Key_Home);
  EXPECT_EQ(model().varDelayAfterCycle, 5);
  key("sliderSimulationSpeed", Qt::Key_End);
  EXPECT_EQ(model().varDelayAfterCycle, 1'000'000'000);
}

TEST_F(ModelControls, PauseAndPaintTypeReachTheModel) {
  initialise(3);
  click("checkPauseWhilePaint");
  EXPECT_EQ(model().varPauseWhilePaint, 1);
  click("checkPauseWhilePaint");
  EXPECT_EQ(model().varPauseWhilePaint, 0);
  choose("listPaintType", "2 - Pixel");
  EXPECT_EQ(model().varPaintbrushColor, 2);
  EXPECT_EQ(well("colorPaintType").rgb(), colorOf(2));
}

TEST_F(ModelControls, TheMousePaintsTheChosenTypeWithTheRunPaused) {
  initialise(3);
  choose("listPaintType", "2 - Pixel");
  click("checkPauseWhilePaint");
  click("buttonRunModel");
  const QPoint corner = gui::pixelAt(model(), 1, 1);
  gui::press(model(), corner);
  EXPECT_EQ(model().varMyState, kPausedForPainting);
  gui::release(model(), corner);
  EXPECT_EQ(model().varMyState, kRunning);
  EXPECT_TRUE(runningConfiguration());
  click("buttonStopModel");
  EXPECT_EQ(model().getSiteValue(0, 0), 2);
}

TEST_F(ModelControls, SettingControlsFromCodeDoesNotChangeTheModel) {
  initialise(3);
  click("checkMasqueradePixel");
  addRule("bond", "Pixel-Pixel Interaction", "1 - Pixel", "2 - Pixel");
  addRule("grow", "Irreversible Flip", "1 - Pixel", "2 - Pixel");
  const int imax = model().getIMax();
  get<Stepper>("stepperNumPixelTypes").setValue(7);
  slider("sliderWidthHeight").setValue(50.0);
  list("listMasqueradeType").setCurrentIndex(1);
  slider("sliderSelectedRuleParam").setValue(0.5);
  check("checkSelectedRuleDisabled").setChecked(true);
  check("checkSelectedRuleIgnoreEnergy").setChecked(true);
  list("listSelectedRuleFacNum").setCurrentIndex(3);
  list("listSelectedRuleFacPixel").setCurrentIndex(2);
  get<QLineEdit>("textSelectedRuleName").setText("not typed");
  list("listSelectPixelType").setCurrentIndex(1);
  list("listSelectedRule").setCurrentIndex(0);
  slider("sliderSelectedRuleParam").setValue(-1.0);
  slider("sliderSimulationSpeed").setValue(5.0);
  slider("sliderPixelField").setValue(3.0);
  slider("sliderSelectedPixelPersistence").setValue(0.5);
  slider("sliderSelectedPixelTrans").setValue(0.5);
  check("checkPauseWhilePaint").setChecked(true);
  check("checkImmobilePixel").setChecked(true);
  check("checkMasqueradePixel").setChecked(false);
  list("listPaintType").setCurrentIndex(2);
  get<QLineEdit>("textPixelName").setText("not typed");
  gui::processEvents();
  EXPECT_EQ(model().varDelayAfterCycle, 1000);
  EXPECT_EQ(model().getPixelField(0), 0.0);
  EXPECT_EQ(model().getPixelPersistence(0), 0.0);
  EXPECT_EQ(model().getPixelAlpha(0), 1.0);
  EXPECT_EQ(model().varPauseWhilePaint, 0);
  EXPECT_EQ(model().getPixelImmobile(0), 0);
  EXPECT_EQ(model().getPixelMasqueradeAs(0), 1);
  EXPECT_EQ(model().varPaintbrushColor, 0);
  EXPECT_EQ(model().getPixelName(0), "Pixel");
  EXPECT_EQ(model().getNumPixelTypes(), 3);
  EXPECT_EQ(model().getIMax(), imax);
  EXPECT_EQ(text("textNumPixelTypes"), "3");
  EXPECT_EQ(text("textWidthHeight"), "100");
  EXPECT_EQ(text("textPixelName"), "not typed");
  EXPECT_EQ(text("textSelectedRuleName"), "not typed");
  EXPECT_EQ(model().getRuleName(0), "bond");
  EXPECT_EQ(model().getRuleName(1), "grow");
  EXPECT_EQ(model().getPixelIntConstant(1, 2), 0.0);
  for (int rule = 0; rule < 2; ++rule) {
    EXPECT_EQ(model().getRuleParam(rule), 0.0) << rule;
    EXPECT_EQ(model().getRuleDisabled(rule), 0) << rule;
    EXPECT_EQ(model().getRuleIgnoreEnergy(rule), 0) << rule;
    EXPECT_EQ(model().getRuleFacNum(rule), 0) << rule;
    EXPECT_EQ(model().getRuleFacPixel(rule), 0) << rule;
  }
}

TEST_F(ModelControls, ClosingTheWindowAtTheSlowestSpeedEndsTheRun) {
  initialise();
  key("sliderSimulationSpeed", Qt::Key_Home);
  click("buttonRunModel");
  ASSERT_TRUE(gui::waitUntil([this] { return model().sweepsDone() > 0; }));
  // A wait without an end: the window would wait for it for ever.
  model().setSimulationSpeed(0);
  window_.reset();
}

TEST_F(ModelControls, TheApplicationQuitsWithItsLastWindow) {
  EXPECT_TRUE(AppDelegate(window_.get()).applicationShouldTerminateAfterLastWindowClosed());
}

}  // namespace
}  // namespace quorvane
