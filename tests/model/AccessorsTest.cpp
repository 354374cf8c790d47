#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "TestModel.h"

namespace quorvane {
namespace {

TEST(Accessors, SitesAreWrittenWithoutTraceOrRedraw) {
  auto model = makeModel(3, 4, 4);
  model->redraws = 0;
  const double before = model->varMobileHistory[2][1][3];
  model->setSiteValue(1, 3, 2);
  EXPECT_EQ(model->getSiteValue(1, 3), 2);
  EXPECT_EQ(model->varMobileHistory[2][1][3], before);
  EXPECT_EQ(model->redraws, 0);
}

TEST(Accessors, ViewSizeIsReadFromTheLastFrame) {
  auto model = makeModel(1, 1, 1);
  model->varMyWidth = 640.5;
  model->varMyHeight = 480.25;
  EXPECT_EQ(model->getWidth(), 640.5);
  EXPECT_EQ(model->getHeight(), 480.25);
}

TEST(Accessors, ColourAndAlphaAskForARedrawAndNothingElseDoes) {
  auto model = makeModel(3, 2, 2);
  model->makeNewRule("r", kIrreversibleFlip, 0, 1);
  model->redraws = 0;
  model->setPixelColor(2, 0.25, 0.5, 0.75);
  EXPECT_EQ(model->redraws, 1);
  model->setPixelAlpha(2, 0.125);
  EXPECT_EQ(model->redraws, 2);

  model->setPixelName(2, "a");
  model->setPixelPersistence(2, 0.5);
  model->setPixelImmobile(2, 1);
  model->setPixelMasqueradeAs(2, 1);
  model->setPixelField(2, -3.5);
  model->setRuleName(0, "b");
  model->setRuleDisabled(0, 1);
  model->setRuleIgnoreEnergy(0, 1);
  model->setRuleParam(0, 0.375);
  model->setRuleFacNum(0, 3);
  model->setRuleFacPixel(0, 2);
  model->setPixelIntConstant(0, 1, 1.0);
  model->setPixelIntConstantBCK(0, 1, 1.0);
  model->setPaintbrushColor(1);
  model->setSimulationSpeed(77);
  model->setFullScreen(1);
  model->setPauseWhilePaint(1);
  EXPECT_EQ(model->redraws, 2);

  EXPECT_EQ(model->getPixelColorR(2), 0.25);
  EXPECT_EQ(model->getPixelColorG(2), 0.5);
  EXPECT_EQ(model->getPixelColorB(2), 0.75);
  EXPECT_EQ(model->getPixelAlpha(2), 0.125);
  EXPECT_EQ(model->getPixelName(2), "a");
  EXPECT_EQ(model->getPixelPersistence(2), 0.5);
  EXPECT_EQ(model->getPixelImmobile(2), 1);
  EXPECT_EQ(model->getPixelMasqueradeAs(2), 1);
  EXPECT_EQ(model->getPixelField(2), -3.5);
  EXPECT_EQ(model->getRuleName(0), "b");
  EXPECT_EQ(model->getRuleDisabled(0), 1);
  EXPECT_EQ(model->getRuleIgnoreEnergy(0), 1);
  EXPECT_EQ(model->getRuleParam(0), 0.375);
  EXPECT_EQ(model->getRuleFacNum(0), 3);
  EXPECT_EQ(model->getRuleFacPixel(0), 2);
  EXPECT_EQ(model->varPaintbrushColor, 1);
  EXPECT_EQ(model->varDelayAfterCycle, 77);
  EXPECT_EQ(model->varInFullScreen, 1);
  EXPECT_EQ(model->varPauseWhilePaint, 1);
}

TEST(Accessors, PairEnergiesAreWrittenSymmetricallyIntoTheirOwnTable) {
  auto model = makeModel(2, 2, 2);
  model->setPixelIntConstant(2, 5, 1.5);
  EXPECT_EQ(model->getPixelIntConstant(2, 5), 1.5);
  EXPECT_EQ(model->getPixelIntConstant(5, 2), 1.5);
  EXPECT_EQ(model->getPixelIntConstantBCK(2, 5), 0.0);
  model->setPixelIntConstantBCK(7, 3, -2.5);
  EXPECT_EQ(model->getPixelIntConstantBCK(7, 3), -2.5);
  EXPECT_EQ(model->getPixelIntConstantBCK(3, 7), -2.5);
  EXPECT_EQ(model->getPixelIntConstant(3, 7), 0.0);
}

TEST(Accessors, APairOfOneTypeWithItselfIsOneCell) {
  auto model = makeModel(2, 2, 2);
  model->setPixelIntConstant(4, 4, 2.0);
  for (int a = 0; a < kMaxPixelTypes; ++a)
    for (int b = 0; b < kMaxPixelTypes; ++b)
      EXPECT_EQ(model->getPixelIntConstant(a, b), a == 4 && b == 4 ? 2.0 : 0.0);
}

TEST(Accessors, ARuleNameIsCopiedAndAPixelNameIsNot) {
  auto model = makeModel(1, 2, 2);
  model->makeNewRule("", kSwap, 0, 0);

  std::string ruleName = "grow";
  model->setRuleName(0, ruleName);
  ruleName = "changed later";
  EXPECT_EQ(model->getRuleName(0), "grow");

  auto pixelName = std::make_shared<std::string>("wall");
  model->setPixelName(0, SharedName(pixelName));
  *pixelName = "changed later";
  EXPECT_EQ(model->getPixelName(0), "changed later");
}

TEST(Accessors, TheNameARuleIsMadeWithIsKeptAsTheSameString) {
  auto model = makeModel(1, 2, 2);
  auto name = std::make_shared<std::string>("grow");
  model->makeNewRule(SharedName(name), kSwap, 0, 0);
  *name = "grown";
  EXPECT_EQ(model->getRuleName(0), "grown");
}

TEST(Accessors, RuleTypeAndEndsAreThoseTheRuleWasMadeWith) {
  auto model = makeModel(5, 2, 2);
  model->makeNewRule("r", kReversibleFlip, 4, kAnyPixelType);
  EXPECT_EQ(model->getNumRules(), 1);
  EXPECT_EQ(model->getRuleType(0), kReversibleFlip);
  EXPECT_EQ(model->getRulePixelA(0), 4);
  EXPECT_EQ(model->getRulePixelB(0), kAnyPixelType);
}

#ifndef NDEBUG
TEST(AccessorsDeathTest, EndTheProgramAtAnIndexOutsideTheArrays) {
  const auto model = makeModel(1, 1, 1);
  EXPECT_DEATH(model->getPixelField(kMaxPixelTypes), "typeIndex");
  EXPECT_DEATH(model->setRuleParam(-1, 0.5), "ruleIndex");
  EXPECT_DEATH(model->setSiteValue(0, kMaxSide, 0), "siteIndex");
  EXPECT_DEATH(model->setPixelIntConstant(0, -1, 1.0), "typeIndex");
  EXPECT_DEATH(model->delRule(0), "varNumRules");
}
#endif

}  // namespace
}  // namespace quorvane
