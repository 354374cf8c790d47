#include "WindowTest.h"

namespace quorvane {
namespace {

class RulePanel : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    initialise(4);
  }
  bool facNumShown() {
    EXPECT_EQ(visible("labelSelectedRuleFacNum"), visible("listSelectedRuleFacNum"));
    return visible("listSelectedRuleFacNum");
  }
  bool facPixelShown() {
    EXPECT_EQ(visible("labelSelectedRuleFacPixel"), visible("listSelectedRuleFacPixel"));
    EXPECT_EQ(visible("colorSelectedRuleFacPixel"), visible("listSelectedRuleFacPixel"));
    return visible("listSelectedRuleFacPixel");
  }
};

TEST_F(RulePanel, TheParameterIsRoundedAsByPrintf) {
  addRule("grow", "Irreversible Flip", "0 - Pixel", "1 - Pixel");
  model().setRuleParam(0, 0.0625);
  choose("listSelectedRule", "0 - grow");
  EXPECT_EQ(text("textSelectedRuleParam"), "0.062");
}

TEST_F(RulePanel, MakesAndShowsEveryKindOfRule) {
  for (const RuleKind& kind : kRuleKinds) {
    SCOPED_TRACE(kind.label);
    addRule("rule", kind.label, kAny, kAny);
    EXPECT_EQ(model().getRuleType(kind.type), kind.type);
    EXPECT_EQ(text("textSelectedRuleType"), kind.label);
    EXPECT_EQ(slider("sliderSelectedRuleParam").minimumValue(), kind.minParameter);
    EXPECT_EQ(slider("sliderSelectedRuleParam").maximumValue(), kind.maxParameter);
    EXPECT_EQ(facNumShown(), kind.flips());
    EXPECT_EQ(visible("checkSelectedRuleIgnoreEnergy"), !kind.setsPairEnergy());
  }
}

TEST_F(RulePanel, RenamingRetitlesTheRuleAndKeepsItSelected) {
  addRule("grow", "Irreversible Flip", kAny, kAny);
  addRule("swap", "Swap", kAny, kAny);
  EXPECT_EQ(items("listSelectedRule"), QStringList({"0 - grow", "1 - swap"}));
  enter("textSelectedRuleName", "diffuse");
  EXPECT_EQ(items("listSelectedRule"), QStringList({"0 - grow", "1 - diffuse"}));
  EXPECT_EQ(list("listSelectedRule").currentIndex(), 1);
  EXPECT_EQ(text("textSelectedRuleName"), "diffuse");
  EXPECT_EQ(model().getRuleName(1), "diffuse");
}

TEST_F(RulePanel, TheFirstRuleIsSelectedAndCanBeDeleted) {
  addRule("grow", "Irreversible Flip", "1 - Pixel", "2 - Pixel");
  EXPECT_EQ(model().getNumRules(), 1);
  EXPECT_EQ(model().getRuleType(0), kIrreversibleFlip);
  EXPECT_EQ(model().getRulePixelA(0), 1);
  EXPECT_EQ(model().getRulePixelB(0), 2);
  EXPECT_EQ(list("listSelectedRule").currentText(), "0 - grow");
  for (const char* name :
       {"listSelectedRule", "buttonDelRule", "textSelectedRuleName", "buttonZeroParam",
        "checkSelectedRuleDisabled", "checkSelectedRuleIgnoreEnergy", "sliderSelectedRuleParam"})
    EXPECT_TRUE(enabled(name)) << name;
  EXPECT_EQ(text("textSelectedRuleType"), "Irreversible Flip");
  EXPECT_EQ(text("textSelectedRulePixelA"), "1 - Pixel");
  EXPECT_EQ(text("textSelectedRulePixelB"), "2 - Pixel");
  EXPECT_EQ(well("colorSelectedRulePixelA").rgb(), colorOf(1));
  EXPECT_EQ(well("colorSelectedRulePixelB").rgb(), colorOf(2));
  EXPECT_EQ(text("textSelectedRuleParam"), "0.000");
}

TEST_F(RulePanel, AThirdRuleIsSelectedToo) {
  for (const char* name : {"a", "b", "c"}) addRule(name, "Swap", kAny, kAny);
  EXPECT_EQ(list("listSelectedRule").currentText(), "2 - c");
  EXPECT_EQ(text("textSelectedRuleName"), "c");
}

TEST_F(RulePanel, AddingResetsTheFieldsOfTheNextRule) {
  addRule("grow", "Reversible Flip", "1 - Pixel", "2 - Pixel");
  EXPECT_EQ(text("textNewRuleName"), "(Enter New Rule Name)");
  for (const char* name : {"listNewRuleType", "listNewRulePixelA", "listNewRulePixelB"})
    EXPECT_EQ(list(name).currentIndex(), 0) << name;
  EXPECT_FALSE(visible("colorNewRulePixelA"));
  EXPECT_FALSE(visible("colorNewRulePixelB"));
}

TEST_F(RulePanel, AcceptsThePromptOrNothingAsAName) {
  click("buttonAddNewRule");
  EXPECT_EQ(model().getRuleName(0), "(Enter New Rule Name)");
  EXPECT_EQ(model().getRulePixelA(0), kAnyPixelType);
  type("textNewRuleName", "");
  click("buttonAddNewRule");
  EXPECT_EQ(model().getRuleName(1), "");
  EXPECT_EQ(list("listSelectedRule").currentText(), "1 - ");
}

TEST_F(RulePanel, DeletingLeavesTheFirstRuleSelected) {
  for (const char* name : {"a", "b", "c"}) addRule(name, "Swap", kAny, kAny);
  choose("listSelectedRule", "1 - b");
  click("buttonDelRule");
  EXPECT_EQ(items("listSelectedRule"), QStringList({"0 - a", "1 - c"}));
  EXPECT_EQ(list("listSelectedRule").currentIndex(), 0);
  EXPECT_EQ(text("textSelectedRuleName"), "a");
  choose("listSelectedRule", "1 - c");
  click("buttonDelRule");
  EXPECT_EQ(list("listSelectedRule").currentText(), "0 - a");
  EXPECT_TRUE(enabled("buttonDelRule"));
}

TEST_F(RulePanel, DeletingTheLastRuleClearsThePanel) {
  addRule("grow", "Irreversible Flip", "1 - Pixel", "2 - Pixel");
  choose("listSelectedRuleFacNum", "3");
  click("checkSelectedRuleDisabled");
  click("checkSelectedRuleIgnoreEnergy");
  slideTo("sliderSelectedRuleParam", 0.5);
  click("buttonDelRule");
  EXPECT_EQ(model().getNumRules(), 0);
  EXPECT_EQ(list("listSelectedRule").count(), 0);
  for (const char* name :
       {"listSelectedRule", "buttonDelRule", "textSelectedRuleName", "buttonZeroParam",
        "checkSelectedRuleDisabled", "checkSelectedRuleIgnoreEnergy", "sliderSelectedRuleParam"})
    EXPECT_FALSE(enabled(name)) << name;
  for (const char* name :
       {"textSelectedRuleName", "textSelectedRuleType", "textSelectedRulePixelA", "textSelectedRulePixelB"})
    EXPECT_EQ(text(name), "") << name;
  EXPECT_EQ(text("textSelectedRuleParam"), "0.000");
  EXPECT_EQ(slider("sliderSelectedRuleParam").value(), 0.0);
  EXPECT_FALSE(check("checkSelectedRuleDisabled").isChecked());
  EXPECT_FALSE(check("checkSelectedRuleIgnoreEnergy").isChecked());
  EXPECT_FALSE(visible("colorSelectedRulePixelA"));
  EXPECT_FALSE(visible("colorSelectedRulePixelB"));
  EXPECT_FALSE(facNumShown());
  EXPECT_FALSE(facPixelShown());
  EXPECT_TRUE(enabled("buttonAddNewRule"));
}

TEST_F(RulePanel, AnInteractionHasItsOwnRangeAndNoFacilitation) {
  addRule("grow", "Irreversible Flip", kAny, kAny);
  addRule("bond", "Pixel-Pixel Interaction", kAny, "2 - Pixel");
  EXPECT_EQ(text("textSelectedRuleType"), "Pixel-Pixel Interaction");
  EXPECT_EQ(text("textSelectedRulePixelA"), "Any pixel type");
  EXPECT_FALSE(visible("colorSelectedRulePixelA"));
  EXPECT_EQ(text("textSelectedRulePixelB"), "2 - Pixel");
  EXPECT_TRUE(visible("colorSelectedRulePixelB"));
  EXPECT_EQ(well("colorSelectedRulePixelB").rgb(), colorOf(2));
  EXPECT_EQ(slider("sliderSelectedRuleParam").minimumValue(), -10.0);
  EXPECT_EQ(slider("sliderSelectedRuleParam").maximumValue(), 10.0);
  EXPECT_EQ(text("textSelectedRuleParam"), "0.000");
  EXPECT_FALSE(visible("checkSelectedRuleIgnoreEnergy"));
  EXPECT_TRUE(check("checkSelectedRuleIgnoreEnergy").isEnabled());
  EXPECT_FALSE(facNumShown());
  EXPECT_FALSE(facPixelShown());

  choose("listSelectedRule", "0 - grow");
  EXPECT_EQ(slider("sliderSelectedRuleParam").minimumValue(), 0.0);
  EXPECT_EQ(slider("sliderSelectedRuleParam").maximumValue(), 1.0);
  EXPECT_TRUE(visible("checkSelectedRuleIgnoreEnergy"));
  EXPECT_TRUE(facNumShown());
}

TEST_F(RulePanel, ASwapHasNoFacilitation) {
  addRule("mix", "Swap", kAny, kAny);
  EXPECT_EQ(text("textSelectedRuleType"), "Swap");
  EXPECT_FALSE(facNumShown());
  EXPECT_FALSE(facPixelShown());
  EXPECT_TRUE(visible("checkSelectedRuleIgnoreEnergy"));
}

TEST_F(RulePanel, TheFacilitationNumberShowsAndHidesItsTypeWhichIsKept) {
  addRule("grow", "Reversible Flip", kAny, kAny);
  EXPECT_TRUE(facNumShown());
  EXPECT_FALSE(facPixelShown());
  choose("listSelectedRuleFacNum", "3");
  EXPECT_EQ(model().getRuleFacNum(0), 3);
  EXPECT_TRUE(facPixelShown());
  choose("listSelectedRuleFacPixel", "2 - Pixel");
  EXPECT_EQ(model().getRuleFacPixel(0), 2);
  EXPECT_EQ(well("colorSelectedRuleFacPixel").rgb(), colorOf(2));
  choose("listSelectedRuleFacNum", "0");
  EXPECT_EQ(model().getRuleFacNum(0), 0);
  EXPECT_EQ(model().getRuleFacPixel(0), 2);
  EXPECT_FALSE(facPixelShown());
  choose("listSelectedRuleFacNum", "8");
  EXPECT_TRUE(facPixelShown());
  EXPECT_EQ(list("listSelectedRuleFacPixel").currentText(), "2 - Pixel");
}

TEST_F(RulePanel, EachRuleShowsItsOwnFacilitationAndFlags) {
  addRule("a", "Irreversible Flip", kAny, kAny);
  choose("listSelectedRuleFacNum", "2");
  choose("listSelectedRuleFacPixel", "3 - Pixel");
  click("checkSelectedRuleDisabled");
  addRule("b", "Irreversible Flip", kAny, kAny);
  EXPECT_FALSE(facPixelShown());
  EXPECT_EQ(list("listSelectedRuleFacNum").currentText(), "0");
  EXPECT_FALSE(check("checkSelectedRuleDisabled").isChecked());
  click("checkSelectedRuleIgnoreEnergy");
  choose("listSelectedRule", "0 - a");
  EXPECT_TRUE(facPixelShown());
  EXPECT_EQ(list("listSelectedRuleFacNum").currentText(), "2");
  EXPECT_EQ(list("listSelectedRuleFacPixel").currentText(), "3 - Pixel");
  EXPECT_TRUE(check("checkSelectedRuleDisabled").isChecked());
  EXPECT_FALSE(check("checkSelectedRuleIgnoreEnergy").isChecked());
  choose("listSelectedRule", "1 - b");
  EXPECT_TRUE(check("checkSelectedRuleIgnoreEnergy").isChecked());
}

TEST_F(RulePanel, TheNewRulesEndsShowTheirColoursUnlessAny) {
  choose("listNewRulePixelA", "3 - Pixel");
  EXPECT_TRUE(visible("colorNewRulePixelA"));
  EXPECT_EQ(well("colorNewRulePixelA").rgb(), colorOf(3));
  EXPECT_FALSE(visible("colorNewRulePixelB"));
  choose("listNewRulePixelB", "1 - Pixel");
  EXPECT_EQ(well("colorNewRulePixelB").rgb(), colorOf(1));
  choose("listNewRulePixelA", kAny);
  EXPECT_FALSE(visible("colorNewRulePixelA"));
  EXPECT_TRUE(visible("colorNewRulePixelB"));
}

TEST_F(RulePanel, A51stRuleHasNoEffect) {
  for (int rule = 0; rule < kMaxRules; ++rule) model().makeNewRule("full", kPixelPixelInteraction, 0, 1);
  window_->controller().refreshRuleList();
  choose("listSelectedRule", "7 - full");
  type("textNewRuleName", "one too many");
  click("buttonAddNewRule");
  EXPECT_EQ(model().getNumRules(), kMaxRules);
  EXPECT_EQ(text("textNewRuleName"), "one too many");
  EXPECT_EQ(list("listSelectedRule").currentText(), "7 - full");
}

TEST_F(RulePanel, ASelectionThatNoLongerExistsSelectsTheFirstRule) {
  for (int rule = 0; rule < 3; ++rule) model().makeNewRule("r", kSwap, 0, 1);
  window_->controller().refreshRuleList();
  EXPECT_EQ(list("listSelectedRule").currentIndex(), 0);
  EXPECT_EQ(text("textSelectedRuleName"), "r");
  choose("listSelectedRule", "2 - r");
  model().delRule(2);
  window_->controller().refreshRuleList();
  EXPECT_EQ(list("listSelectedRule").currentText(), "0 - r");
}

TEST_F(RulePanel, AValueThatIsNotInAListIsShownAsNone) {
  model().makeNewRule("odd", kIrreversibleFlip, 0, 1);
  model().setRuleFacNum(0, 9);
  model().setRuleFacPixel(0, kAnyPixelType);
  window_->controller().refreshRuleList();
  EXPECT_EQ(list("listSelectedRuleFacNum").currentIndex(), -1);
  EXPECT_EQ(list("listSelectedRuleFacPixel").currentIndex(), -1);
  EXPECT_FALSE(well("colorSelectedRuleFacPixel").color().isValid());
  EXPECT_EQ(model().getRuleFacNum(0), 9);
  choose("listSelectedRuleFacPixel", "2 - Pixel");
  EXPECT_EQ(model().getRuleFacPixel(0), 2);
  EXPECT_EQ(well("colorSelectedRuleFacPixel").rgb(), colorOf(2));
}

TEST_F(RulePanel, AnUnknownRuleTypeChangesNoneOfTheTypesControls) {
  addRule("mix", "Swap", kAny, kAny);
  model().varRuleType[0] = 7;
  window_->controller().refreshRuleList();
  EXPECT_EQ(text("textSelectedRuleType"), "Swap");
  EXPECT_EQ(slider("sliderSelectedRuleParam").maximumValue(), 1.0);
}

}  // namespace
}  // namespace quorvane
