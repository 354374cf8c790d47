#include <gmock/gmock.h>

#include <vector>

#include "ForeseenDraws.h"
#include "TestModel.h"

namespace quorvane {
namespace {

TEST(Lifecycle, StartsWithEveryFieldZero) {
  auto model = std::make_unique<LatticeModel>();
  EXPECT_EQ(model->varMyState, kNotInitialised);
  EXPECT_EQ(model->varNumSiteTypes, 0);
  EXPECT_EQ(model->varDelayAfterCycle, 0);
  EXPECT_EQ(model->varImax, 0);
  EXPECT_EQ(model->varSiteValues[255][255], 0);
  EXPECT_EQ(model->varMobileHistory[9][255][255], 0.0);
  EXPECT_EQ(model->varAccessibleRulesForSiteID[9][49], 0);
  EXPECT_EQ(model->varInteractionConstantsBCK[9][9], 0.0);
  EXPECT_EQ(model->getPixelName(0), "");
  EXPECT_EQ(model->getRuleName(49), "");
  EXPECT_EQ(model->varMyType, 0);
  EXPECT_EQ(model->varFacNum, 0);
  for (const double unused : {double{model->varK}, double{model->varKP}, double{model->varS},
                              double{model->varB}, double{model->varEquilAtt}, double{model->varJ}})
    EXPECT_EQ(unused, 0.0);
}

TEST(Lifecycle, AwakeningSetsTheStartValuesAndAsksForARedraw) {
  auto model = makeModel(3, 4, 5);
  model->makeNewRule("r", kSwap, 0, 1);
  model->varPainting = 1;
  model->setFullScreen(1);
  model->setPaintbrushColor(2);
  model->redraws = 0;
  model->awakeFromNib();
  EXPECT_EQ(model->varMyState, kNotInitialised);
  EXPECT_EQ(model->varPainting, 0);
  EXPECT_EQ(model->varInFullScreen, 0);
  EXPECT_EQ(model->getIMax(), 0);
  EXPECT_EQ(model->getJMax(), 0);
  EXPECT_EQ(model->varPaintbrushColor, 0);
  EXPECT_EQ(model->getNumPixelTypes(), 1);
  EXPECT_EQ(model->getNumRules(), 0);
  EXPECT_EQ(model->redraws, 1);
}

TEST(Lifecycle, InitialisingGivesSizesTypesAndTheStoppedState) {
  auto model = std::make_unique<TestModel>();
  model->redraws = 0;
  model->initializeLatticeModel(4, 17, 9);
  EXPECT_EQ(model->getIMax(), 17);
  EXPECT_EQ(model->getJMax(), 9);
  EXPECT_EQ(model->getNumPixelTypes(), 4);
  EXPECT_EQ(model->getNumRules(), 0);
  EXPECT_EQ(model->varMyState, kStopped);
  EXPECT_EQ(model->redraws, 1);
  for (int t = 0; t < 4; ++t) {
    EXPECT_EQ(model->getPixelName(t), "Pixel");
    EXPECT_EQ(model->getPixelPersistence(t), 0.0);
    EXPECT_EQ(model->getPixelAlpha(t), 1.0);
    EXPECT_EQ(model->getPixelImmobile(t), 0);
    EXPECT_EQ(model->getPixelMasqueradeAs(t), -1);
    EXPECT_EQ(model->getPixelField(t), 0.0);
  }
}

TEST(Lifecycle, InitialisingDrawsTheSitesColumnByColumnAndThenTheColoursFromTypeOneUp) {
  ForeseenDraws draws;
  auto model = makeModel(3, 6, 4);
  for (int i = 0; i < 6; ++i)
    for (int j = 0; j < 4; ++j) ASSERT_EQ(model->getSiteValue(i, j), draws.whole(3) - 1) << i << ' ' << j;
  EXPECT_EQ(model->getPixelColorR(0), 0.0);
  EXPECT_EQ(model->getPixelColorG(0), 0.0);
  EXPECT_EQ(model->getPixelColorB(0), 0.0);
  for (int t = 1; t < 3; ++t) {
    EXPECT_EQ(model->getPixelColorR(t), draws.real());
    EXPECT_EQ(model->getPixelColorG(t), draws.real());
    EXPECT_EQ(model->getPixelColorB(t), draws.real());
  }
  EXPECT_EQ(fRandReal(), draws.real()) << "no draw beyond these";
}

TEST(Lifecycle, InitialisingSetsEveryTraceToTheSitesOfItsType) {
  auto model = makeModel(3, 12, 7);
  for (int t = 0; t < 3; ++t) {
    EXPECT_EQ(model->varMobileHistoryMax[t], 1.0);
    for (int i = 0; i < 12; ++i)
      for (int j = 0; j < 7; ++j)
        ASSERT_EQ(model->varMobileHistory[t][i][j], model->getSiteValue(i, j) == t ? 1.0 : 0.0);
  }
}

TEST(Lifecycle, InitialisingClearsOnlyTheActivePairEnergiesAndKeepsRowsOfRules) {
  auto model = makeModel(2, 5, 5);
  model->setPixelIntConstant(9, 9, 3.0);
  model->setPixelIntConstant(0, 1, -2.0);
  model->setPixelIntConstantBCK(0, 1, 7.0);
  model->makeNewRule("kept in the arrays", kSwap, 1, 0);
  model->setRuleParam(0, 0.25);
  model->initializeLatticeModel(3, 5, 5);
  EXPECT_EQ(model->getNumRules(), 0);
  EXPECT_EQ(model->getPixelIntConstant(9, 9), 0.0);
  EXPECT_EQ(model->getPixelIntConstant(0, 1), 0.0);
  EXPECT_EQ(model->getPixelIntConstantBCK(0, 1), 7.0);
  EXPECT_EQ(rowOf(*model, 1), std::vector<int>{0});
  EXPECT_EQ(model->getRuleName(0), "kept in the arrays");
  EXPECT_EQ(model->getRuleParam(0), 0.25);
}

TEST(Lifecycle, RemakingKeepsTypesRulesAndConstantsButRefillsTheLatticeAndTheTraces) {
  auto model = makeModel(2, 5, 5);
  model->addPixelType();
  model->setPixelName(1, "wall");
  model->setPixelColor(1, 0.1, 0.2, 0.3);
  model->setPixelAlpha(1, 0.5);
  model->setPixelPersistence(1, 0.9);
  model->setPixelImmobile(1, 1);
  model->setPixelMasqueradeAs(1, 0);
  model->setPixelField(1, -1.5);
  model->makeNewRule("swap", kSwap, 0, 1);
  model->setRuleDisabled(0, 1);
  model->setPixelIntConstant(0, 1, 2.0);
  model->setPixelIntConstantBCK(0, 1, 4.0);
  fillLattice(*model, 9);
  for (int t = 0; t < 3; ++t) model->varMobileHistoryMax[t] = 5.0;

  ForeseenDraws draws;
  model->redraws = 0;
  model->initializeLatticeModel(-1, 8, 3);
  for (int i = 0; i < 8; ++i)
    for (int j = 0; j < 3; ++j) ASSERT_EQ(model->getSiteValue(i, j), draws.whole(3) - 1);
  EXPECT_EQ(fRandReal(), draws.real()) << "remaking draws no colours";

  EXPECT_EQ(model->getIMax(), 8);
  EXPECT_EQ(model->getJMax(), 3);
  EXPECT_EQ(model->getNumPixelTypes(), 3);
  EXPECT_EQ(model->getPixelName(1), "wall");
  EXPECT_EQ(model->getPixelName(2), "New Pixel");
  EXPECT_EQ(model->getPixelColorG(1), 0.2);
  EXPECT_EQ(model->getPixelAlpha(1), 0.5);
  EXPECT_EQ(model->getPixelPersistence(1), 0.9);
  EXPECT_EQ(model->getPixelImmobile(1), 1);
  EXPECT_EQ(model->getPixelMasqueradeAs(1), 0);
  EXPECT_EQ(model->getPixelField(1), -1.5);
  EXPECT_EQ(model->getNumRules(), 1);
  EXPECT_EQ(model->getRuleDisabled(0), 1);
  EXPECT_EQ(model->getPixelIntConstant(1, 0), 2.0);
  EXPECT_EQ(model->getPixelIntConstantBCK(1, 0), 4.0);
  EXPECT_EQ(model->varMyState, kStopped);
  EXPECT_EQ(model->redraws, 1);
  for (int t = 0; t < 3; ++t) {
    EXPECT_EQ(model->varMobileHistoryMax[t], 1.0);
    EXPECT_EQ(model->varMobileHistory[t][7][2], model->getSiteValue(7, 2) == t ? 1.0 : 0.0);
  }
}

TEST(Lifecycle, SitesThatAreNotInUseAreNotChanged) {
  auto model = std::make_unique<TestModel>();
  model->setSiteValue(3, 2, 7);
  model->setSiteValue(2, 3, 8);
  model->initializeLatticeModel(2, 3, 3);
  EXPECT_EQ(model->getSiteValue(3, 2), 7);
  EXPECT_EQ(model->getSiteValue(2, 3), 8);
}

TEST(Lifecycle, AnAddedTypeHasItsDefaultsARandomColourAndAnEmptyTrace) {
  auto model = makeModel(2, 5, 5);
  model->setPixelIntConstant(2, 0, 6.0);
  model->setPixelIntConstantBCK(2, 1, 5.0);
  model->makeNewRule("any", kSwap, kAnyPixelType, kAnyPixelType);
  model->varMobileHistory[2][4][4] = 0.5;
  model->varMobileHistoryMax[2] = 8.0;
  model->setPixelImmobile(2, 1);
  ForeseenDraws draws;
  model->addPixelType();
  EXPECT_EQ(model->getNumPixelTypes(), 3);
  EXPECT_EQ(model->getPixelName(2), "New Pixel");
  EXPECT_EQ(model->getPixelColorR(2), draws.real());
  EXPECT_EQ(model->getPixelColorG(2), draws.real());
  EXPECT_EQ(model->getPixelColorB(2), draws.real());
  EXPECT_EQ(fRandReal(), draws.real());
  EXPECT_EQ(model->getPixelImmobile(2), 0);
  EXPECT_EQ(model->getPixelMasqueradeAs(2), -1);
  EXPECT_EQ(model->getPixelPersistence(2), 0.0);
  EXPECT_EQ(model->getPixelAlpha(2), 1.0);
  EXPECT_EQ(model->getPixelField(2), 0.0);
  EXPECT_EQ(model->varMobileHistory[2][4][4], 0.0);
  EXPECT_EQ(model->varMobileHistoryMax[2], 1.0);
  EXPECT_EQ(model->getPixelIntConstant(0, 2), 6.0) << "the constants of the new type are left as they are";
  EXPECT_EQ(model->getPixelIntConstantBCK(1, 2), 5.0);
  EXPECT_THAT(rowOf(*model, 2), testing::IsEmpty()) << "no existing rule enters the new type's row";
}

TEST(Lifecycle, TenTypesCanBeAdded) {
  auto model = makeModel(1, 3, 3);
  for (int n = 1; n < kMaxPixelTypes; ++n) model->addPixelType();
  EXPECT_EQ(model->getNumPixelTypes(), 10);
  EXPECT_EQ(model->getPixelName(9), "New Pixel");
}

TEST(Lifecycle, ReinitialisingATraceChangesOnlyThatType) {
  auto model = makeModel(2, 4, 4);
  fillLattice(*model, 1);
  model->varMobileHistory[0][1][1] = 0.25;
  model->reinitHistory(1);
  EXPECT_EQ(model->varMobileHistory[1][1][1], 1.0);
  EXPECT_EQ(model->varMobileHistory[0][1][1], 0.25);
}

}  // namespace
}  // namespace quorvane
