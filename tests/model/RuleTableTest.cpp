#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "TestModel.h"

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(RuleTable, ANewRuleHasItsDefaults) {
  auto model = makeModel(3, 2, 2);
  model->varRuleDisabled[0] = 1;
  model->varRuleIgnoreEnergy[0] = 1;
  model->varRuleParameter[0] = 0.5;
  model->varRuleFacNumAndType[0][0] = 4;
  model->varRuleFacNumAndType[0][1] = 2;
  model->makeNewRule("grow", kIrreversibleFlip, 2, 1);
  EXPECT_EQ(model->getNumRules(), 1);
  EXPECT_EQ(model->getRuleName(0), "grow");
  EXPECT_EQ(model->getRuleType(0), kIrreversibleFlip);
  EXPECT_EQ(model->getRulePixelA(0), 2);
  EXPECT_EQ(model->getRulePixelB(0), 1);
  EXPECT_EQ(model->getRuleParam(0), 0.0);
  EXPECT_EQ(model->getRuleFacNum(0), 0);
  EXPECT_EQ(model->getRuleFacPixel(0), 0);
  EXPECT_EQ(model->getRuleDisabled(0), 0);
  EXPECT_EQ(model->getRuleIgnoreEnergy(0), 0);
}

TEST(RuleTable, IrreversibleFlipsAndSwapsEnterTheRowOfEndAWhateverEndB) {
  auto model = makeModel(4, 2, 2);
  model->makeNewRule("swap", kSwap, 2, 0);
  model->makeNewRule("swap any", kSwap, 2, kAny);
  model->makeNewRule("flip", kIrreversibleFlip, 2, 3);
  EXPECT_THAT(rowOf(*model, 2), ElementsAre(0, 1, 2));
  for (const int t : {0, 1, 3}) EXPECT_THAT(rowOf(*model, t), IsEmpty());
}

TEST(RuleTable, AnAnyEndEntersTheRowsInUseOnly) {
  auto model = makeModel(3, 2, 2);
  model->makeNewRule("flip", kIrreversibleFlip, kAny, 0);
  for (int t = 0; t < 3; ++t) EXPECT_THAT(rowOf(*model, t), ElementsAre(0));
  for (int t = 3; t < kMaxPixelTypes; ++t) EXPECT_THAT(rowOf(*model, t), IsEmpty());
}

TEST(RuleTable, AReversibleFlipEntersTheRowsOfBothEnds) {
  auto model = makeModel(3, 2, 2);
  model->makeNewRule("flip", kReversibleFlip, 0, 2);
  EXPECT_THAT(rowOf(*model, 0), ElementsAre(0));
  EXPECT_THAT(rowOf(*model, 1), IsEmpty());
  EXPECT_THAT(rowOf(*model, 2), ElementsAre(0));
}

TEST(RuleTable, AReversibleFlipBetweenOverlappingEndsHasTwoEntries) {
  auto model = makeModel(3, 2, 2);
  model->makeNewRule("same ends", kReversibleFlip, 1, 1);
  EXPECT_THAT(rowOf(*model, 1), ElementsAre(0, 0));
  model->delRule(0);
  model->makeNewRule("one any end", kReversibleFlip, kAny, 1);
  EXPECT_THAT(rowOf(*model, 0), ElementsAre(0));
  EXPECT_THAT(rowOf(*model, 1), ElementsAre(0, 0));
  EXPECT_THAT(rowOf(*model, 2), ElementsAre(0));
  model->delRule(0);
  for (int t = 0; t < 3; ++t) EXPECT_THAT(rowOf(*model, t), IsEmpty());
}

TEST(RuleTable, AReversibleFlipBetweenAnyAndAnyFillsEveryRowTwiceAndDeletingItEmptiesThem) {
  auto model = makeModel(3, 2, 2);
  model->makeNewRule("any", kReversibleFlip, kAny, kAny);
  for (int t = 0; t < 3; ++t) EXPECT_THAT(rowOf(*model, t), ElementsAre(0, 0));
  model->delRule(0);
  for (int t = 0; t < 3; ++t) EXPECT_THAT(rowOf(*model, t), IsEmpty());
}

TEST(RuleTable, InteractionsAndUnknownTypesEnterNoRowAndWriteNoConstant) {
  auto model = makeModel(2, 2, 2);
  model->setPixelIntConstant(0, 1, 4.0);
  model->makeNewRule("pair", kPixelPixelInteraction, 0, 1);
  model->makeNewRule("unknown", 7, 0, kAny);
  model->makeNewRule("negative", -1, kAny, 0);
  EXPECT_EQ(model->getNumRules(), 3);
  EXPECT_EQ(model->getRuleType(1), 7);
  EXPECT_EQ(model->getRuleType(2), -1);
  EXPECT_EQ(model->getRuleName(1), "unknown");
  for (int t = 0; t < 2; ++t) EXPECT_THAT(rowOf(*model, t), IsEmpty());
  EXPECT_EQ(model->getPixelIntConstant(0, 1), 4.0);
}

TEST(RuleTable, DeletingTheFirstOfThreeRenumbersOnlyTheFirstEntry) {
  auto model = makeModel(1, 2, 2);
  for (const char* name : {"a", "b", "c"}) model->makeNewRule(name, kIrreversibleFlip, 0, 0);
  ASSERT_THAT(rowOf(*model, 0), ElementsAre(0, 1, 2));
  model->delRule(0);
  EXPECT_THAT(rowOf(*model, 0), ElementsAre(0, 2));
  EXPECT_EQ(model->getNumRules(), 2);
  EXPECT_EQ(model->getRuleName(0), "b");
  EXPECT_EQ(model->getRuleName(1), "c");
}

TEST(RuleTable, DeletionMovesLaterRulesDownButNotTheirFlags) {
  auto model = makeModel(3, 2, 2);
  for (int r = 0; r < 3; ++r) {
    const RuleType types[] = {kSwap, kIrreversibleFlip, kReversibleFlip};
    model->makeNewRule(std::string(1, static_cast<char>('a' + r)), types[r], r, 2 - r);
    model->setRuleParam(r, 0.1 * (r + 1));
    model->setRuleFacNum(r, r + 1);
    model->setRuleFacPixel(r, r);
  }
  model->setRuleDisabled(0, 1);
  model->setRuleIgnoreEnergy(1, 1);
  model->delRule(0);
  EXPECT_EQ(model->getNumRules(), 2);
  EXPECT_EQ(model->getRuleDisabled(0), 1);
  EXPECT_EQ(model->getRuleDisabled(1), 0);
  EXPECT_EQ(model->getRuleIgnoreEnergy(0), 0);
  EXPECT_EQ(model->getRuleIgnoreEnergy(1), 1);
  EXPECT_EQ(model->getRuleName(0), "b");
  EXPECT_EQ(model->getRuleType(0), kIrreversibleFlip);
  EXPECT_EQ(model->getRulePixelA(0), 1);
  EXPECT_EQ(model->getRulePixelB(0), 1);
  EXPECT_EQ(model->getRuleParam(0), 0.2);
  EXPECT_EQ(model->getRuleFacNum(0), 2);
  EXPECT_EQ(model->getRuleFacPixel(0), 1);
  EXPECT_EQ(model->getRuleName(1), "c");
  EXPECT_EQ(model->getRuleFacPixel(1), 2);
  EXPECT_EQ(model->getRuleType(1), kReversibleFlip);
  EXPECT_EQ(model->getRulePixelA(1), 2);
  EXPECT_EQ(model->getRulePixelB(1), 0);
  EXPECT_EQ(model->getRuleFacNum(1), 3);
}

void expectCleared(const LatticeModel& model, int r) {
  EXPECT_EQ(model.getRuleName(r), "");
  EXPECT_EQ(model.getRuleType(r), -1);
  EXPECT_EQ(model.getRulePixelA(r), -1);
  EXPECT_EQ(model.getRulePixelB(r), -1);
  EXPECT_EQ(model.getRuleParam(r), 0.0);
  EXPECT_EQ(model.getRuleFacNum(r), 0);
  EXPECT_EQ(model.getRuleFacPixel(r), 0);
}

TEST(RuleTable, DeletingTheLastRuleClearsOnlyItsSlotAndKeepsItsFlags) {
  auto model = makeModel(2, 2, 2);
  model->makeNewRule("first", kSwap, 0, 1);
  model->makeNewRule("second", kSwap, 1, 0);
  model->setRuleParam(1, 0.5);
  model->setRuleFacNum(1, 3);
  model->setRuleFacPixel(1, 1);
  model->setRuleDisabled(1, 1);
  model->setRuleIgnoreEnergy(1, 1);
  model->delRule(1);
  EXPECT_EQ(model->getNumRules(), 1);
  EXPECT_EQ(model->getRuleName(0), "first");
  expectCleared(*model, 1);
  EXPECT_EQ(model->getRuleDisabled(1), 1);
  EXPECT_EQ(model->getRuleIgnoreEnergy(1), 1);
  EXPECT_THAT(rowOf(*model, 0), ElementsAre(0));
  EXPECT_THAT(rowOf(*model, 1), IsEmpty());
}

TEST(RuleTable, DeletingAnEarlierRuleClearsTheSlotThatTheLastOneLeft) {
  auto model = makeModel(2, 2, 2);
  model->makeNewRule("first", kSwap, 0, 1);
  model->makeNewRule("second", kSwap, 1, 0);
  model->setRuleParam(1, 0.5);
  model->delRule(0);
  EXPECT_EQ(model->getRuleName(0), "second");
  expectCleared(*model, 1);
}

TEST(RuleTable, RemovingARuleFromARowMovesTheRestDownAndClearsTheLastEntry) {
  auto model = makeModel(1, 2, 2);
  for (int r = 0; r < 3; ++r) model->makeNewRule("r", kSwap, 0, 0);
  model->delRuleFromSiteList(1, 0);
  EXPECT_THAT(rowOf(*model, 0), ElementsAre(0, 2));
  EXPECT_EQ(model->varAccessibleRulesForSiteID[0][2], -1);
  EXPECT_EQ(model->varAccessibleRulesForSiteID[0][3], 0) << "a place never used stays 0";
  model->delRuleFromSiteList(7, 0);
  EXPECT_THAT(rowOf(*model, 0), ElementsAre(0, 2)) << "a rule that is not there";
  model->delRuleFromSiteList(2, 0);
  EXPECT_THAT(rowOf(*model, 0), ElementsAre(0));
  EXPECT_EQ(model->varAccessibleRulesForSiteID[0][1], -1);
  model->delRuleFromSiteList(0, 0);
  model->delRuleFromSiteList(0, 0);
  EXPECT_THAT(rowOf(*model, 0), IsEmpty());
}

TEST(RuleTable, RemovingARuleFromARowRemovesOnlyItsFirstOccurrence) {
  auto model = makeModel(1, 2, 2);
  model->makeNewRule("r", kReversibleFlip, 0, 0);
  model->makeNewRule("s", kSwap, 0, 0);
  ASSERT_THAT(rowOf(*model, 0), ElementsAre(0, 0, 1));
  model->delRuleFromSiteList(0, 0);
  EXPECT_THAT(rowOf(*model, 0), ElementsAre(0, 1));
}

TEST(RuleTable, RenumberingLowersOneEntryInEachRowInUse) {
  auto model = makeModel(2, 2, 2);
  for (int r = 0; r < 4; ++r) model->makeNewRule("r", kSwap, kAny, 0);
  model->shiftRuleIDsInSiteLists(1);
  EXPECT_THAT(rowOf(*model, 0), ElementsAre(0, 1, 1, 3));
  EXPECT_THAT(rowOf(*model, 1), ElementsAre(0, 1, 1, 3));
}

TEST(RuleTable, RenumberingDoesNotChangeTheRowsOfTypesThatAreNotInUse) {
  auto model = makeModel(2, 2, 2);
  model->makeNewRule("first", kSwap, 0, 1);
  model->makeNewRule("of a type to come", kSwap, 3, 0);
  model->delRule(0);
  EXPECT_THAT(rowOf(*model, 3), ElementsAre(1));
}

TEST(RuleTable, DeletingAnAnyRuleDoesNotChangeTheRowOfATypeAddedLater) {
  auto model = makeModel(2, 2, 2);
  model->makeNewRule("any", kSwap, kAny, 0);
  model->addPixelType();
  model->makeNewRule("any again", kSwap, kAny, 0);
  EXPECT_THAT(rowOf(*model, 2), ElementsAre(1));
  model->delRule(0);
  EXPECT_THAT(rowOf(*model, 0), ElementsAre(0));
  EXPECT_THAT(rowOf(*model, 2), ElementsAre(0));
}

TEST(RuleTable, DeletingAnInteractionZeroesRowAndColumnAndRenumbersNothing) {
  auto model = makeModel(3, 2, 2);
  for (int a = 0; a < 4; ++a)
    for (int b = 0; b < 4; ++b) {
      model->setPixelIntConstant(a, b, 1.0);
      model->setPixelIntConstantBCK(a, b, 2.0);
    }
  model->makeNewRule("pair", kPixelPixelInteraction, 1, kAny);
  model->makeNewRule("swap", kSwap, 0, 1);
  model->delRule(0);
  EXPECT_THAT(rowOf(*model, 0), ElementsAre(1)) << "the entry keeps the number of a rule that moved to 0";
  for (int a = 0; a < 4; ++a)
    for (int b = 0; b < 4; ++b) {
      const bool covered = (a == 1 && b < 3) || (b == 1 && a < 3);
      EXPECT_EQ(model->getPixelIntConstant(a, b), covered ? 0.0 : 1.0) << a << ' ' << b;
      EXPECT_EQ(model->getPixelIntConstantBCK(a, b), 2.0);
    }
}

TEST(RuleTable, DeletingAnInteractionZeroesTheCellsOfItsEnds) {
  struct Case {
    int endA, endB;
  };
  for (const auto [endA, endB] : {Case{0, 2}, Case{kAny, 1}, Case{kAny, kAny}, Case{2, 2}}) {
    auto model = makeModel(3, 2, 2);
    for (int a = 0; a < 4; ++a)
      for (int b = 0; b < 4; ++b) model->setPixelIntConstant(a, b, 1.0);
    model->makeNewRule("pair", kPixelPixelInteraction, endA, endB);
    model->delRule(0);
    const auto matches = [](int end, int type) { return type < 3 && (end == kAny || end == type); };
    for (int a = 0; a < 4; ++a)
      for (int b = 0; b < 4; ++b) {
        const bool covered = (matches(endA, a) && matches(endB, b)) || (matches(endA, b) && matches(endB, a));
        EXPECT_EQ(model->getPixelIntConstant(a, b), covered ? 0.0 : 1.0)
            << endA << ' ' << endB << ": " << a << ' ' << b;
      }
  }
}

TEST(RuleTable, DeletingARuleOfAnUnknownTypeChangesNoRowAndNoConstant) {
  auto model = makeModel(2, 2, 2);
  model->makeNewRule("unknown", 4, 0, 1);
  model->makeNewRule("swap", kSwap, 0, 1);
  model->setPixelIntConstant(0, 1, 3.0);
  model->delRule(0);
  EXPECT_EQ(model->getNumRules(), 1);
  EXPECT_THAT(rowOf(*model, 0), ElementsAre(1));
  EXPECT_EQ(model->getPixelIntConstant(0, 1), 3.0);
}

TEST(RuleTable, AFiftyFirstRuleHasNoEffect) {
  auto model = makeModel(2, 2, 2);
  for (int r = 0; r < kMaxRules; ++r) {
    EXPECT_TRUE(model->canMakeNewRule(kSwap, 0, 1));
    model->makeNewRule("r", kSwap, 0, 1);
  }
  EXPECT_FALSE(model->canMakeNewRule(kPixelPixelInteraction, 0, 1));
  model->makeNewRule("one too many", kSwap, 0, 1);
  EXPECT_EQ(model->getNumRules(), kMaxRules);
  EXPECT_EQ(rowOf(*model, 0).size(), 50u);
  EXPECT_EQ(model->getRuleName(49), "r");
}

TEST(RuleTable, ARuleThatWouldOverfillARowHasNoEffect) {
  auto model = makeModel(2, 2, 2);
  for (int r = 0; r < 24; ++r) model->makeNewRule("twice in each row", kReversibleFlip, kAny, kAny);
  model->makeNewRule("once", kSwap, 1, 0);
  EXPECT_FALSE(model->canMakeNewRule(kReversibleFlip, 1, 1)) << "49 entries and two more";
  EXPECT_TRUE(model->canMakeNewRule(kReversibleFlip, 0, 1));
  EXPECT_TRUE(model->canMakeNewRule(kReversibleFlip, 0, 0));
  model->makeNewRule("too much", kReversibleFlip, kAny, kAny);
  EXPECT_EQ(model->getNumRules(), 25);
  EXPECT_EQ(rowOf(*model, 0).size(), 48u);
  EXPECT_EQ(rowOf(*model, 1).size(), 49u);
  EXPECT_TRUE(model->canMakeNewRule(kPixelPixelInteraction, kAny, kAny)) << "enters no row";
}

}  // namespace
}  // namespace quorvane
