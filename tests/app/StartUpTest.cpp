#include "WindowTest.h"

namespace quorvane {
namespace {

using StartUp = WindowTest;

TEST_F(StartUp, ShowsTheStartValues) {
  EXPECT_EQ(get<Stepper>("stepperNumPixelTypes").value(), 2);
  EXPECT_EQ(text("textNumPixelTypes"), "2");
  EXPECT_EQ(slider("sliderWidthHeight").intValue(), 100);
  EXPECT_EQ(text("textWidthHeight"), "100");
  EXPECT_EQ(slider("sliderSimulationSpeed").intValue(), 1000);
  EXPECT_EQ(text("textSimulationSpeed"), QLocale().toString(1000));
  EXPECT_EQ(window_->windowTitle(), "Quorvane");
  EXPECT_EQ(window_->size(), QSize(1180, 760));
}

TEST_F(StartUp, SetsTheSpeedOfTheModelWithoutInitialisingIt) {
  EXPECT_EQ(model().varDelayAfterCycle, 1000);
  EXPECT_EQ(model().varMyState, kNotInitialised);
  EXPECT_EQ(model().getNumPixelTypes(), 1);
  EXPECT_EQ(model().getNumRules(), 0);
}

TEST_F(StartUp, DrawsNothingButBlack) {
  const QImage frame = gui::frameOf(model());
  QImage black(frame.size(), frame.format());
  black.fill(Qt::black);
  EXPECT_TRUE(gui::samePixels(frame, black));
}

TEST_F(StartUp, PlacesTheViewByItsMargins) { EXPECT_EQ(model().geometry(), QRect(11, 29, 624, 526)); }

TEST_F(StartUp, EnablesOnlyControlsThatMakeAModel) {
  for (const char* name : {"buttonInitialiseModel", "stepperNumPixelTypes", "sliderWidthHeight",
                           "buttonOpenSystem", "sliderSimulationSpeed", "textNewRuleName", "listNewRuleType"})
    EXPECT_TRUE(enabled(name)) << name;
  for (const char* name : {"buttonRemakeModel",        "buttonAddNewRule",
                           "buttonAddNewPixel",        "buttonSaveSystem",
                           "listSelectPixelType",      "textPixelName",
                           "sliderSelectedPixelTrans", "sliderSelectedPixelPersistence",
                           "checkImmobilePixel",       "checkMasqueradePixel",
                           "colorSelectedPixelColor",  "sliderPixelField",
                           "buttonZeroPixelField",     "listNewRulePixelA",
                           "listNewRulePixelB",        "listPaintType",
                           "checkPauseWhilePaint",     "buttonRunModel",
                           "buttonStopModel",          "buttonFullScreen"})
    EXPECT_FALSE(enabled(name)) << name;
}

TEST_F(StartUp, ShowsTheRulePanelAsWithoutARule) {
  for (const char* name :
       {"listSelectedRule", "buttonDelRule", "textSelectedRuleName", "buttonZeroParam",
        "checkSelectedRuleDisabled", "checkSelectedRuleIgnoreEnergy", "sliderSelectedRuleParam"})
    EXPECT_FALSE(enabled(name)) << name;
  for (const char* name : {"listSelectedRuleFacPixel", "listSelectedRuleFacNum", "colorSelectedRuleFacPixel",
                           "labelSelectedRuleFacNum", "labelSelectedRuleFacPixel", "colorSelectedRulePixelA",
                           "colorSelectedRulePixelB", "colorNewRulePixelA", "colorNewRulePixelB",
                           "labelMasqueradeType", "listMasqueradeType", "colorMasqueradeType"})
    EXPECT_FALSE(visible(name)) << name;
  EXPECT_EQ(text("textSelectedRuleParam"), "0.000");
  EXPECT_EQ(text("textNewRuleName"), "(Enter New Rule Name)");
}

TEST_F(StartUp, ShowsTheItemsOfTheLayout) {
  QStringList ruleTypes;
  for (const RuleKind& kind : kRuleKinds) ruleTypes << kind.label;
  EXPECT_EQ(items("listNewRuleType"), ruleTypes);
  EXPECT_EQ(items("listSelectedRuleFacNum"), QStringList({"0", "1", "2", "3", "4", "5", "6", "7", "8"}));
  EXPECT_EQ(items("listNewRulePixelA"), QStringList({kAny}));
}

TEST_F(StartUp, HasTheRangesOfTheModel) {
  const auto expectRange = [this](const char* name, double minimum, double maximum) {
    EXPECT_EQ(slider(name).minimumValue(), minimum) << name;
    EXPECT_EQ(slider(name).maximumValue(), maximum) << name;
  };
  expectRange("sliderWidthHeight", 2, 256);
  expectRange("sliderSimulationSpeed", 5, 1e9);
  expectRange("sliderSelectedPixelPersistence", 0, 1);
  expectRange("sliderSelectedPixelTrans", 0, 1);
  expectRange("sliderPixelField", -10, 10);
  EXPECT_TRUE(slider("sliderSimulationSpeed").isLogarithmic());
  EXPECT_EQ(get<Stepper>("stepperNumPixelTypes").minimum(), 1);
  EXPECT_EQ(get<Stepper>("stepperNumPixelTypes").maximum(), 10);
}

}  // namespace
}  // namespace quorvane
