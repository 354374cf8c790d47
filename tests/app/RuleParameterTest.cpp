#include <array>

#include "WindowTest.h"

namespace quorvane {
namespace {

class RuleParameter : public WindowTest {
 protected:
  using Table = std::array<std::array<double, kMaxPixelTypes>, kMaxPixelTypes>;

  void interaction(const QString& endA, const QString& endB) {
    addRule("bond", "Pixel-Pixel Interaction", endA, endB);
  }
  Table active() {
    return tableOf([this](int a, int b) { return model().getPixelIntConstant(a, b); });
  }
  Table backup() {
    return tableOf([this](int a, int b) { return model().getPixelIntConstantBCK(a, b); });
  }
  static Table only(std::initializer_list<std::pair<int, int>> cells, double value) {
    Table table{};
    for (const auto& [a, b] : cells) table[std::size_t(a)][std::size_t(b)] = value;
    return table;
  }

 private:
  template <class Read>
  static Table tableOf(Read read) {
    Table table{};
    for (int a = 0; a < kMaxPixelTypes; ++a)
      for (int b = 0; b < kMaxPixelTypes; ++b) table[std::size_t(a)][std::size_t(b)] = read(a, b);
    return table;
  }
};

TEST_F(RuleParameter, AnEnabledInteractionWritesItsPairOnly) {
  initialise(6);
  interaction("2 - Pixel", "5 - Pixel");
  slideTo("sliderSelectedRuleParam", 1.5);
  EXPECT_EQ(active(), only({{2, 5}, {5, 2}}, 1.5));
  EXPECT_EQ(backup(), Table{});
  EXPECT_EQ(text("textSelectedRuleParam"), "1.500");
  EXPECT_EQ(model().getRuleParam(0), 1.5);
}

TEST_F(RuleParameter, ADisabledInteractionWritesTheBackupWhichEnablingCopies) {
  initialise(6);
  interaction("2 - Pixel", "5 - Pixel");
  click("checkSelectedRuleDisabled");
  slideTo("sliderSelectedRuleParam", 1.5);
  EXPECT_EQ(active(), Table{});
  EXPECT_EQ(backup(), only({{2, 5}, {5, 2}}, 1.5));
  click("checkSelectedRuleDisabled");
  EXPECT_EQ(active(), only({{2, 5}, {5, 2}}, 1.5));
  EXPECT_EQ(backup(), only({{2, 5}, {5, 2}}, 1.5));
  EXPECT_EQ(model().getRuleDisabled(0), 0);
}

TEST_F(RuleParameter, AnInteractionWithAnyTypeCoversTheTypesInUse) {
  initialise(3);
  interaction("1 - Pixel", kAny);
  slideTo("sliderSelectedRuleParam", -2.0);
  EXPECT_EQ(active(), only({{1, 0}, {0, 1}, {1, 1}, {1, 2}, {2, 1}}, -2.0));
}

TEST_F(RuleParameter, DisablingAnyWithAnyLosesTheCrossValues) {
  initialise(3);
  interaction(kAny, kAny);
  slideTo("sliderSelectedRuleParam", 2.0);
  click("checkSelectedRuleDisabled");
  EXPECT_EQ(active(), Table{});
  click("checkSelectedRuleDisabled");
  EXPECT_EQ(active(), only({{0, 0}, {1, 1}, {2, 2}}, 2.0));
}

TEST_F(RuleParameter, InteractionsOnOnePairShareItsCells) {
  initialise(3);
  interaction("0 - Pixel", "1 - Pixel");
  slideTo("sliderSelectedRuleParam", 1.0);
  interaction("0 - Pixel", "1 - Pixel");
  slideTo("sliderSelectedRuleParam", 3.0);
  EXPECT_EQ(active(), only({{0, 1}, {1, 0}}, 3.0));
  choose("listSelectedRule", "0 - bond");
  EXPECT_EQ(text("textSelectedRuleParam"), "1.000");
  click("checkSelectedRuleDisabled");
  EXPECT_EQ(active(), Table{});
  EXPECT_EQ(backup(), only({{0, 1}, {1, 0}}, 3.0));
  click("checkSelectedRuleDisabled");
  EXPECT_EQ(active(), only({{0, 1}, {1, 0}}, 3.0));
}

TEST_F(RuleParameter, ZeroOnAFlipChangesNoTable) {
  initialise(3);
  interaction(kAny, kAny);
  slideTo("sliderSelectedRuleParam", 1.0);
  const Table before = active();
  addRule("grow", "Irreversible Flip", "0 - Pixel", "1 - Pixel");
  slideTo("sliderSelectedRuleParam", 0.375);
  EXPECT_EQ(model().getRuleParam(1), 0.375);
  EXPECT_EQ(text("textSelectedRuleParam"), "0.375");
  click("buttonZeroParam");
  EXPECT_EQ(model().getRuleParam(1), 0.0);
  EXPECT_EQ(text("textSelectedRuleParam"), "0.000");
  EXPECT_EQ(slider("sliderSelectedRuleParam").value(), 0.0);
  EXPECT_EQ(active(), before);
  EXPECT_EQ(backup(), Table{});
}

TEST_F(RuleParameter, ZeroOnAnInteractionClearsItsPairs) {
  initialise(3);
  interaction("0 - Pixel", kAny);
  slideTo("sliderSelectedRuleParam", 1.0);
  click("buttonZeroParam");
  EXPECT_EQ(active(), Table{});
  EXPECT_EQ(model().getRuleParam(0), 0.0);
}

TEST_F(RuleParameter, TheFlagsOfAFlipOrASwapChangeNothingElse) {
  initialise(3);
  interaction(kAny, kAny);
  slideTo("sliderSelectedRuleParam", 1.0);
  const Table before = active();
  int rule = 0;
  for (const char* ruleType : {"Irreversible Flip", "Reversible Flip", "Swap"}) {
    addRule("r", ruleType, "0 - Pixel", "1 - Pixel");
    ++rule;
    const int entries = model().varAccessibleRulesForSiteIDCount[0];
    click("checkSelectedRuleDisabled");
    EXPECT_EQ(model().getRuleDisabled(rule), 1);
    click("checkSelectedRuleIgnoreEnergy");
    EXPECT_EQ(model().getRuleIgnoreEnergy(rule), 1);
    click("checkSelectedRuleDisabled");
    EXPECT_EQ(model().getRuleDisabled(rule), 0);
    EXPECT_EQ(model().getRuleIgnoreEnergy(rule), 1);
    click("checkSelectedRuleIgnoreEnergy");
    EXPECT_EQ(model().getRuleIgnoreEnergy(rule), 0);
    EXPECT_EQ(model().varAccessibleRulesForSiteIDCount[0], entries);
  }
  EXPECT_EQ(active(), before);
  EXPECT_EQ(backup(), Table{});
  EXPECT_EQ(model().getRuleDisabled(0), 0);
}

TEST_F(RuleParameter, AnAnyRuleCoversALaterTypeOnlyWhenWrittenAgain) {
  initialise(2);
  interaction(kAny, kAny);
  slideTo("sliderSelectedRuleParam", 1.0);
  click("buttonAddNewPixel");
  EXPECT_EQ(active(), only({{0, 0}, {0, 1}, {1, 0}, {1, 1}}, 1.0));
  key("sliderSelectedRuleParam", Qt::Key_Right);
  EXPECT_EQ(model().getPixelIntConstant(2, 2), 1.1);
  EXPECT_EQ(model().getPixelIntConstant(0, 2), 1.1);
}

TEST_F(RuleParameter, ANewInteractionWritesNoTable) {
  initialise(2);
  interaction(kAny, kAny);
  slideTo("sliderSelectedRuleParam", 1.0);
  interaction("0 - Pixel", "1 - Pixel");
  EXPECT_EQ(text("textSelectedRuleParam"), "0.000");
  EXPECT_EQ(model().getPixelIntConstant(0, 1), 1.0);
}

TEST_F(RuleParameter, DeletingAnInteractionClearsTheActivePairsAlone) {
  initialise(2);
  interaction("0 - Pixel", "1 - Pixel");
  click("checkSelectedRuleDisabled");
  slideTo("sliderSelectedRuleParam", 1.0);
  click("checkSelectedRuleDisabled");
  click("buttonDelRule");
  EXPECT_EQ(active(), Table{});
  EXPECT_EQ(backup(), only({{0, 1}, {1, 0}}, 1.0));
}

TEST_F(RuleParameter, AStoredParameterIsShownUnroundedAndKept) {
  initialise(2);
  model().makeNewRule("fine", kIrreversibleFlip, 0, 1);
  model().setRuleParam(0, 0.00012345);
  window_->controller().refreshRuleList();
  EXPECT_EQ(slider("sliderSelectedRuleParam").value(), 0.00012345);
  EXPECT_EQ(text("textSelectedRuleParam"), "0.000");
  EXPECT_EQ(model().getRuleParam(0), 0.00012345);
}

}  // namespace
}  // namespace quorvane
