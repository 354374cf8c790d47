#include <gtest/gtest.h>

#include <functional>

#include "TestModel.h"

namespace quorvane {
namespace {

std::unique_ptr<TestModel> modelWithInteraction(int numTypes, int endA, int endB) {
  auto model = makeModel(numTypes, 2, 2);
  model->makeNewRule("pair", kPixelPixelInteraction, endA, endB);
  return model;
}

/// The effect of the panel's check box on an interaction rule.
void setDisabled(LatticeModel& model, int rule, bool disabled) {
  model.setRuleDisabled(rule, disabled ? 1 : 0);
  if (disabled)
    model.disableInteraction(rule);
  else
    model.enableInteraction(rule);
}

using Expected = std::function<double(int, int)>;

void expectActive(const LatticeModel& model, const Expected& expected) {
  for (int a = 0; a < kMaxPixelTypes; ++a)
    for (int b = 0; b < kMaxPixelTypes; ++b)
      EXPECT_EQ(model.getPixelIntConstant(a, b), expected(a, b)) << "active " << a << ' ' << b;
}

void expectBackup(const LatticeModel& model, const Expected& expected) {
  for (int a = 0; a < kMaxPixelTypes; ++a)
    for (int b = 0; b < kMaxPixelTypes; ++b)
      EXPECT_EQ(model.getPixelIntConstantBCK(a, b), expected(a, b)) << "backup " << a << ' ' << b;
}

double zero(int, int) { return 0.0; }

Expected onPair(int x, int y, double value) {
  return [=](int a, int b) { return (a == x && b == y) || (a == y && b == x) ? value : 0.0; };
}

TEST(InteractionRules, AnEnabledRuleWritesItsPairIntoTheActiveTable) {
  auto model = modelWithInteraction(6, 2, 5);
  model->setInteractionParams(0, 1.5);
  expectActive(*model, onPair(2, 5, 1.5));
  expectBackup(*model, zero);
  EXPECT_EQ(model->getRuleParam(0), 0.0) << "the rule's own parameter is the caller's to write";
}

TEST(InteractionRules, ADisabledRuleWritesTheBackupAndEnablingCopiesIt) {
  auto model = modelWithInteraction(6, 2, 5);
  setDisabled(*model, 0, true);
  model->setInteractionParams(0, 1.5);
  expectActive(*model, zero);
  expectBackup(*model, onPair(2, 5, 1.5));
  setDisabled(*model, 0, false);
  expectActive(*model, onPair(2, 5, 1.5));
  expectBackup(*model, onPair(2, 5, 1.5));
}

TEST(InteractionRules, ARuleWithAnyTypeCoversItsRowAndColumnOfTheTypesInUse) {
  const auto cross = [](int a, int b) { return (a == 1 && b < 3) || (b == 1 && a < 3) ? 2.0 : 0.0; };
  for (const bool anyIsEndA : {false, true}) {
    auto model = anyIsEndA ? modelWithInteraction(3, kAny, 1) : modelWithInteraction(3, 1, kAny);
    model->setInteractionParams(0, 2.0);
    expectActive(*model, cross);
    setDisabled(*model, 0, true);
    expectActive(*model, zero);
    // The pair of the type with itself is moved once, so its value is not lost.
    expectBackup(*model, cross);
    setDisabled(*model, 0, false);
    expectActive(*model, cross);
  }
}

TEST(InteractionRules, ARuleBetweenAnyAndAnyLosesItsCrossPairsWhenDisabled) {
  auto model = modelWithInteraction(3, kAny, kAny);
  model->setInteractionParams(0, 2.0);
  expectActive(*model, [](int a, int b) { return a < 3 && b < 3 ? 2.0 : 0.0; });
  setDisabled(*model, 0, true);
  const auto diagonal = [](int a, int b) { return a == b && a < 3 ? 2.0 : 0.0; };
  expectActive(*model, zero);
  expectBackup(*model, diagonal);
  setDisabled(*model, 0, false);
  expectActive(*model, diagonal);
}

TEST(InteractionRules, DisablingBetweenAnyAndAnyReplacesOlderBackupsOfCrossPairs) {
  auto model = modelWithInteraction(2, kAny, kAny);
  model->setPixelIntConstantBCK(0, 1, 9.0);
  model->setInteractionParams(0, 2.0);
  setDisabled(*model, 0, true);
  EXPECT_EQ(model->getPixelIntConstantBCK(0, 1), 0.0);
  EXPECT_EQ(model->getPixelIntConstantBCK(1, 0), 0.0);
}

TEST(InteractionRules, OverlappingRulesShareTheirCellAndTheLastWriteWins) {
  auto model = makeModel(2, 2, 2);
  model->makeNewRule("first", kPixelPixelInteraction, 0, 1);
  model->makeNewRule("second", kPixelPixelInteraction, 1, 0);
  model->setInteractionParams(0, 1.0);
  model->setInteractionParams(1, 3.0);
  expectActive(*model, onPair(0, 1, 3.0));
  setDisabled(*model, 0, true);
  expectActive(*model, zero);
  expectBackup(*model, onPair(0, 1, 3.0));
  setDisabled(*model, 0, false);
  expectActive(*model, onPair(0, 1, 3.0));
}

TEST(InteractionRules, ATypeAddedLaterIsCoveredOnlyByTheNextWrite) {
  auto model = modelWithInteraction(2, 0, kAny);
  model->setInteractionParams(0, 1.0);
  model->addPixelType();
  EXPECT_EQ(model->getPixelIntConstant(0, 2), 0.0);
  model->setInteractionParams(0, 1.0);
  EXPECT_EQ(model->getPixelIntConstant(0, 2), 1.0);
  EXPECT_EQ(model->getPixelIntConstant(2, 0), 1.0);
  EXPECT_EQ(model->getPixelIntConstant(2, 2), 0.0);
}

TEST(InteractionRules, ANewRuleWritesNeitherTable) {
  auto model = makeModel(2, 2, 2);
  model->setPixelIntConstant(0, 1, 5.0);
  model->setPixelIntConstantBCK(0, 1, 6.0);
  model->makeNewRule("pair", kPixelPixelInteraction, 0, 1);
  EXPECT_EQ(model->getPixelIntConstant(0, 1), 5.0);
  EXPECT_EQ(model->getPixelIntConstantBCK(0, 1), 6.0);
}

TEST(InteractionRules, SettingTheFlagAloneChangesNoTable) {
  auto model = modelWithInteraction(2, 0, 1);
  model->setInteractionParams(0, 1.0);
  model->setRuleDisabled(0, 1);
  expectActive(*model, onPair(0, 1, 1.0));
  expectBackup(*model, zero);
}

TEST(InteractionRules, DeletingADisabledRuleClearsTheActivePairAndKeepsTheBackup) {
  auto model = modelWithInteraction(2, 0, 1);
  model->setInteractionParams(0, 1.0);
  setDisabled(*model, 0, true);
  model->setPixelIntConstant(0, 1, 8.0);
  model->delRule(0);
  expectActive(*model, zero);
  expectBackup(*model, onPair(0, 1, 1.0));
}

}  // namespace
}  // namespace quorvane
