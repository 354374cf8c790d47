#include <gtest/gtest.h>

#include <random>

#include "TestModel.h"
#include "Waiting.h"

// Also run under the thread sanitizer, which must report nothing.
namespace quorvane {
namespace {

/// One edit that a user could make during a run.
void editAtRandom(LatticeModel& model, std::mt19937& random) {
  const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  const int numTypes = model.getNumPixelTypes();
  const int numRules = model.getNumRules();
  const auto end = [&] { return below(numTypes + 1) - 1; };
  switch (below(18)) {
    case 0:
      model.makeNewRule("rule", below(4), end(), end());
      break;
    case 1:
      if (numRules > 0) model.delRule(below(numRules));
      break;
    case 2:
      if (numTypes < kMaxPixelTypes && below(20) == 0) model.addPixelType();
      break;
    case 3:
      model.setSiteValue(below(model.getIMax()), below(model.getJMax()), below(numTypes));
      break;
    case 4:
      model.setPixelColor(below(numTypes), 0.5, 0.25, 0.125);
      break;
    case 5:
      model.setPixelPersistence(below(numTypes), 0.9);
      break;
    case 6:
      model.setPixelImmobile(below(numTypes), below(2));
      break;
    case 7:
      model.setPixelMasqueradeAs(below(numTypes), end());
      break;
    case 8:
      model.setPixelField(below(numTypes), below(3) - 1.0);
      break;
    case 9:
      if (numRules > 0) model.setRuleDisabled(below(numRules), below(2));
      break;
    case 10:
      if (numRules > 0) model.setRuleParam(below(numRules), below(11) / 10.0);
      break;
    case 11:
      if (numRules > 0) {
        model.setRuleFacNum(below(numRules), below(9));
        model.setRuleFacPixel(below(numRules), end());
      }
      break;
    case 12:
      model.setPixelName(below(numTypes), std::string(static_cast<std::size_t>(below(40)), 'n'));
      break;
    case 13:
      if (numRules > 0)
        model.setRuleName(below(numRules), std::string(static_cast<std::size_t>(below(40)), 'r'));
      break;
    case 14:
      model.setPixelAlpha(below(numTypes), below(5) / 4.0);
      break;
    case 15:
      if (numRules > 0) model.setRuleIgnoreEnergy(below(numRules), below(2));
      break;
    case 16:
      model.setSimulationSpeed(kFastest - below(1000));
      break;
    default:
      if (numRules > 0) {
        const int rule = below(numRules);
        if (model.getRuleType(rule) == kPixelPixelInteraction) {
          model.setInteractionParams(rule, below(21) / 10.0 - 1.0);
          if (below(2) == 0) model.disableInteraction(rule);
          if (below(2) == 0) model.enableInteraction(rule);
        }
      }
  }
}

/// Reads what a frame or a save reads; the sum keeps the compiler from removing the reads.
double readEverything(const LatticeModel& model) {
  double sum = model.getWidth() + model.getHeight();
  for (int t = 0; t < model.getNumPixelTypes(); ++t) {
    sum += model.varMobileHistoryMax[t] + model.getPixelAlpha(t) + model.getPixelColorR(t);
    for (int i = 0; i < model.getIMax(); ++i)
      for (int j = 0; j < model.getJMax(); ++j)
        sum += model.varMobileHistory[t][i][j] + model.getSiteValue(i, j);
  }
  return sum;
}

void expectTypesBelow(int numTypes, const LatticeModel& model) {
  for (int i = 0; i < model.getIMax(); ++i)
    for (int j = 0; j < model.getJMax(); ++j) {
      ASSERT_GE(model.getSiteValue(i, j), 0);
      ASSERT_LT(model.getSiteValue(i, j), numTypes);
    }
}

TEST(SharedUse, EditingPaintingAndReadingWhileTwoLoopsRunKeepsTheModelWhole) {
  auto model = makeModel(3, 16, 16);
  model->setSimulationSpeed(kFastest);
  model->makeNewRule("swap", kSwap, kAny, kAny);
  model->setRuleParam(0, 1.0);
  model->makeNewRule("flip", kReversibleFlip, kAny, kAny);
  model->setRuleParam(1, 1.0);
  model->runLatticeModelInBackground();
  model->runLatticeModelInBackground();
  std::mt19937 random(1);
  double sum = 0.0;
  int edits = 0;
  // Edits continue until the loops have made their sweeps, so that both really work at the same time.
  EXPECT_TRUE(waitUntil([&] {
    for (int k = 0; k < 50; ++k) editAtRandom(*model, random);
    edits += 50;
    if (edits % 500 == 0) sum += readEverything(*model);
    if (edits % 1000 == 0) {
      model->stopLatticeModel();
      model->runLatticeModelInBackground();
    }
    return model->sweepsDone() >= 500 && edits >= 5000;
  }));
  model->endRunLoops();
  EXPECT_GT(sum, 0.0);
  expectTypesBelow(kMaxPixelTypes, *model);
}

TEST(SharedUse, PaintingDuringSwapsOfFewTypesKeepsTheModelValid) {
  // With energies, so that two or three types are swapped by tables of neighbourhoods. Painting also uses
  // types that are not in use.
  for (const int numTypes : {2, 3}) {
    auto model = makeModel(numTypes, 32, 32);
    model->setSimulationSpeed(kFastest);
    model->makeNewRule("swap", kSwap, kAny, kAny);
    model->setRuleParam(0, 1.0);
    model->makeNewRule("pair", kPixelPixelInteraction, 0, 1);
    model->setInteractionParams(1, 0.1);
    model->runLatticeModelInBackground();
    std::mt19937 random(5);
    const auto below = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    // The loop may get its first turn late.
    EXPECT_TRUE(waitUntil([&] {
      for (int stroke = 0; stroke < 3'000'000; ++stroke)
        model->setSiteValue(below(32), below(32), below(stroke % 16 == 0 ? kMaxPixelTypes : numTypes));
      return model->sweepsDone() > 0;
    }));
    model->endRunLoops();
    expectTypesBelow(kMaxPixelTypes, *model);
  }
}

TEST(SharedUse, RemakingAtOtherSizesDuringARunKeepsTheModelValid) {
  auto model = makeModel(3, 16, 16);
  model->setSimulationSpeed(kFastest);
  model->makeNewRule("swap", kSwap, kAny, kAny);
  model->setRuleParam(0, 1.0);
  model->makeNewRule("pair", kPixelPixelInteraction, 0, 1);
  model->setInteractionParams(1, 1.0);
  std::mt19937 random(2);
  for (int round = 0; round < 200; ++round) {
    const auto before = model->sweepsDone();
    model->runLatticeModelInBackground();
    ASSERT_TRUE(waitUntil([&] { return model->sweepsDone() > before; }));
    const int imax = 1 + static_cast<int>(random() % 40);
    const int jmax = 1 + static_cast<int>(random() % 40);
    model->initializeLatticeModel(-1, imax, jmax);
    EXPECT_EQ(model->varMyState, kStopped);
  }
  model->endRunLoops();
  expectTypesBelow(3, *model);
}

TEST(SharedUse, RemakingWithOtherTypesDuringARunKeepsTheModelValid) {
  auto model = makeModel(3, 16, 16);
  model->setSimulationSpeed(kFastest);
  model->makeNewRule("flip", kReversibleFlip, kAny, kAny);
  model->setRuleParam(0, 1.0);
  std::mt19937 random(3);
  for (int round = 0; round < 200; ++round) {
    const auto before = model->sweepsDone();
    model->runLatticeModelInBackground();
    ASSERT_TRUE(waitUntil([&] { return model->sweepsDone() > before; }));
    const int numTypes = 1 + static_cast<int>(random() % kMaxPixelTypes);
    model->initializeLatticeModel(numTypes, 16, 16);
    EXPECT_EQ(model->varMyState, kStopped);
    EXPECT_EQ(model->getNumPixelTypes(), numTypes);
  }
  // The last attempt of an interrupted sweep may still write one of the former types.
  model->endRunLoops();
  expectTypesBelow(kMaxPixelTypes, *model);
}

}  // namespace
}  // namespace quorvane
