#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "ForeseenDraws.h"
#include "TestModel.h"
#include "Waiting.h"

namespace quorvane {
namespace {

/// A model in which every attempt may change something and every trace has a history.
std::unique_ptr<TestModel> livelyModel(int imax, int jmax) {
  auto model = makeModel(3, imax, jmax);
  model->makeNewRule("flip", kReversibleFlip, 0, 1);
  model->setRuleParam(0, 0.5);
  model->makeNewRule("swap", kSwap, kAnyPixelType, kAnyPixelType);
  model->setRuleParam(1, 1.0);
  model->makeNewRule("bond", kPixelPixelInteraction, 1, 2);
  model->setRuleParam(2, 0.8);
  model->setInteractionParams(2, 0.8);
  for (int type = 0; type < 3; ++type) model->setPixelPersistence(type, 0.3 * type);
  return model;
}

void expectSameLattice(const LatticeModel& a, const LatticeModel& b) {
  for (int i = 0; i < a.getIMax(); ++i)
    for (int j = 0; j < a.getJMax(); ++j) {
      ASSERT_EQ(a.getSiteValue(i, j), b.getSiteValue(i, j)) << i << ", " << j;
      for (int type = 0; type < a.getNumPixelTypes(); ++type)
        ASSERT_EQ(a.varMobileHistory[type][i][j], b.varMobileHistory[type][i][j]) << i << ", " << j;
    }
  for (int type = 0; type < a.getNumPixelTypes(); ++type)
    ASSERT_EQ(a.varMobileHistoryMax[type], b.varMobileHistoryMax[type]);
}

TEST(OneSweep, MakesOneAttemptMoreThanThereAreSitesAndAsksForOneRedraw) {
  auto model = makeModel(2, 9, 7);
  model->redraws = 0;
  ForeseenDraws draws;
  EXPECT_TRUE(model->sweepOnce());
  EXPECT_EQ(draws.sinceLast(), 2 * (9 * 7 + 1));
  EXPECT_EQ(model->sweepsDone(), 1);
  EXPECT_EQ(model->varMyState, kStopped);
  EXPECT_EQ(model->redraws, 1);
  EXPECT_EQ(model->redrawsFromRunLoop, 0);
}

TEST(OneSweep, RepeatedEqualsTheRunToTheLastBit) {
  for (const auto& [imax, jmax] : {std::pair(1, 1), {2, 5}, {7, 7}, {60, 50}, {128, 100}}) {
    const RandomSource start = processRandomSource;
    auto stepped = livelyModel(imax, jmax);
    for (int sweep = 0; sweep < 20; ++sweep) ASSERT_TRUE(stepped->sweepOnce());
    const double next = fRandReal();
    processRandomSource = start;
    auto run = livelyModel(imax, jmax);
    run->runSweeps(20);
    EXPECT_EQ(fRandReal(), next) << "the same number of draws";
    expectSameLattice(*stepped, *run);
  }
}

TEST(OneSweep, IsMadeOnlyWhileTheModelIsStopped) {
  for (const int state : {kNotInitialised, kRunning, kPausedForPainting}) {
    auto model = makeModel(2, 5, 5);
    model->varMyState = state;
    model->redraws = 0;
    ForeseenDraws draws;
    EXPECT_FALSE(model->sweepOnce());
    EXPECT_EQ(draws.sinceLast(), 0);
    EXPECT_EQ(model->sweepsDone(), 0);
    EXPECT_EQ(model->varMyState, state);
    EXPECT_EQ(model->redraws, 0);
  }
}

TEST(OneSweep, DoesNotRestartALoopThatIsStillInItsWait) {
  auto model = makeModel(2, 64, 64);
  model->setSimulationSpeed(kEndlessWait);
  std::atomic<bool> ended = false;
  std::thread loop([&] {
    model->runLatticeModel();
    ended = true;
  });
  EXPECT_TRUE(waitUntil([&] { return model->redrawsFromRunLoop == 1; })) << "now in its wait";
  model->stopLatticeModel();
  // Without pauses between the sweeps, in which the loop could end.
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  int sweeps = 0;
  for (; !ended && std::chrono::steady_clock::now() < deadline; ++sweeps) {
    if (sweeps == 10) model->setSimulationSpeed(kFastest);
    EXPECT_TRUE(model->sweepOnce());
  }
  EXPECT_TRUE(ended);
  model->stopLatticeModel();
  loop.join();
  EXPECT_EQ(model->sweepsDone(), 1 + sweeps);
  EXPECT_EQ(model->redrawsFromRunLoop, 1);
}

TEST(OneSweep, NeverOverlapsWithTheEndOfAnInterruptedSweep) {
  for (int round = 0; round < 100; ++round) {
    auto model = makeModel(1, 256, 256);
    model->setPixelPersistence(0, 1.0);  // The trace counts its updates.
    model->setSimulationSpeed(kFastest);
    model->runLatticeModelInBackground();
    ASSERT_TRUE(waitUntil([&] { return model->sweepsDone() > 0; }));
    model->stopLatticeModel();
    ASSERT_TRUE(model->sweepOnce());
    const auto sweeps = model->sweepsDone();
    model->endRunLoops();
    ASSERT_EQ(model->sweepsDone(), sweeps) << "no loop has begun or gone on";
    int lost = 0;
    for (const auto& column : model->varMobileHistory[0])
      for (const double trace : column) lost += trace != 1.0 + static_cast<double>(sweeps);
    ASSERT_EQ(lost, 0) << "updates of the trace in round " << round;
  }
}

TEST(OneSweep, NeverOverlapsWithASweepThatIsAboutToBegin) {
  // On a lattice of one site a loop is between two sweeps most of the time.
  auto model = makeModel(1, 1, 1);
  model->setPixelPersistence(0, 1.0);
  model->setSimulationSpeed(kFastest);
  for (int round = 0; round < 200; ++round) {
    const auto before = model->sweepsDone();
    model->runLatticeModelInBackground();
    ASSERT_TRUE(waitUntil([&] { return model->sweepsDone() > before; }));
    model->stopLatticeModel();
    ASSERT_TRUE(model->sweepOnce());
    const auto sweeps = model->sweepsDone();
    ASSERT_EQ(model->varMobileHistory[0][0][0], 1.0 + static_cast<double>(sweeps)) << "round " << round;
    model->endRunLoops();
    model->setSimulationSpeed(kFastest);
    ASSERT_EQ(model->sweepsDone(), sweeps) << "round " << round;
  }
}

TEST(LatticeReplaced, IsCalledOnceForEachNewLattice) {
  class Watched : public TestModel {
   public:
    int told = 0;

   protected:
    void latticeReplaced() override { ++told; }
  };
  const auto model = std::make_unique<Watched>();
  EXPECT_EQ(model->told, 0);
  model->initializeLatticeModel(2, 5, 5);
  EXPECT_EQ(model->told, 1);
  model->initializeLatticeModel(-1, 6, 6);
  EXPECT_EQ(model->told, 2);
  model->addPixelType();
  model->sweepOnce();
  EXPECT_EQ(model->told, 2);
}

}  // namespace
}  // namespace quorvane
