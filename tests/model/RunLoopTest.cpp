#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <mutex>
#include <set>
#include <thread>

#include "ForeseenDraws.h"
#include "TestModel.h"
#include "Waiting.h"

namespace quorvane {
namespace {

using Clock = std::chrono::steady_clock;

/// A model that records the threads of its sweeps.
class ThreadedModel : public LatticeModel {
 public:
  ThreadedModel() {
    awakeFromNib();
    initializeLatticeModel(3, 16, 16);
  }
  ~ThreadedModel() override { endRunLoops(); }

  std::size_t numLoopsSeen() {
    const std::lock_guard lock(mutex_);
    return threads_.size();
  }
  void forgetLoops() {
    const std::lock_guard lock(mutex_);
    threads_.clear();
  }

 protected:
  void requestRedrawFromRunLoop() override {
    const std::lock_guard lock(mutex_);
    threads_.insert(std::this_thread::get_id());
  }

 private:
  std::mutex mutex_;
  std::set<std::thread::id> threads_;
};

/// A rule that flips every site of type 0 to type 1 at its first attempt.
void addCertainFlip(LatticeModel& model) {
  model.makeNewRule("flip", kIrreversibleFlip, 0, 1);
  model.setRuleParam(0, 1.0);
  model.setRuleIgnoreEnergy(0, 1);
}

TEST(RunLoop, ASweepMakesOneAttemptMoreThanThereAreSites) {
  auto model = makeModel(1, 7, 5);
  model->varMyState = kRunning;
  ForeseenDraws draws;
  model->sweep();
  EXPECT_EQ(draws.sinceLast(), 2 * (7 * 5 + 1)) << "two draws for each site tried, no rule to draw";
}

TEST(RunLoop, ALatticeOfOneSiteMakesTwoAttempts) {
  auto model = makeModel(1, 1, 1);
  model->varMyState = kRunning;
  ForeseenDraws draws;
  model->sweep();
  EXPECT_EQ(draws.sinceLast(), 4);
}

TEST(RunLoop, AnAttemptIsMadeAtTheDrawnColumnThenTheDrawnRow) {
  auto model = makeModel(2, 3, 200);
  fillLattice(*model, 0);
  addCertainFlip(*model);
  model->varMyState = kRunning;
  ForeseenDraws draws;
  model->sweep();
  bool expected[3][200] = {};
  for (int k = 0; k <= 3 * 200; ++k) {
    const int i = draws.whole(3) - 1;
    const int j = draws.whole(200) - 1;
    if (expected[i][j]) continue;  // Type 1 has no rule, so there are no more draws.
    expected[i][j] = true;
    draws.real();  // the rule
    draws.real();  // the acceptance
  }
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 200; ++j) ASSERT_EQ(model->getSiteValue(i, j), expected[i][j] ? 1 : 0);
}

TEST(RunLoop, ASweepOutsideTheRunningStateAttemptsNothing) {
  for (const int state : {kNotInitialised, kStopped, kPausedForPainting}) {
    auto model = makeModel(2, 5, 5);
    model->varMyState = state;
    ForeseenDraws draws;
    model->sweep();
    EXPECT_EQ(draws.sinceLast(), 0);
  }
}

TEST(RunLoop, WithoutALatticeNoRuleIsDrawn) {
  auto model = std::make_unique<TestModel>();
  addCertainFlip(*model);
  model->varMyState = kRunning;
  ForeseenDraws draws;
  model->sweep();
  EXPECT_EQ(draws.sinceLast(), 2);
  EXPECT_EQ(model->getSiteValue(0, 0), 0);
}

TEST(RunLoop, RunsSetTheStateAndStopEndsThem) {
  auto model = makeModel(2, 10, 10);
  model->setSimulationSpeed(kFastest);
  std::thread loop([&] { model->runLatticeModel(); });
  EXPECT_TRUE(waitUntil([&] { return model->sweepsDone() > 3; }));
  EXPECT_EQ(model->varMyState, kRunning);
  model->stopLatticeModel();
  EXPECT_EQ(model->varMyState, kStopped);
  loop.join();
  EXPECT_EQ(model->varMyState, kStopped);
}

TEST(RunLoop, EverySweepAsksForOneRedrawFromTheLoop) {
  auto model = makeModel(2, 10, 10);
  model->setSimulationSpeed(kFastest);
  model->redraws = 0;
  model->runLatticeModelInBackground();
  EXPECT_TRUE(waitUntil([&] { return model->redrawsFromRunLoop > 10; }));
  model->endRunLoops();
  EXPECT_EQ(model->redrawsFromRunLoop, model->sweepsDone());
  EXPECT_EQ(model->redraws, 0);
}

TEST(RunLoop, AModelWithoutRulesStillSweepsAndKeepsItsTraces) {
  auto model = makeModel(2, 4, 4);
  fillLattice(*model, 1);
  model->reinitHistory(1);
  model->setPixelPersistence(1, 0.5);
  ForeseenDraws draws;
  model->runSweeps(3);
  EXPECT_EQ(model->sweepsDone(), 3);
  EXPECT_EQ(draws.sinceLast(), 3 * 2 * (4 * 4 + 1));
  EXPECT_EQ(model->varMobileHistoryMax[1], 1.875);
}

TEST(RunLoop, StoppingDuringASweepLeavesTheRestButStillUpdatesTheTrace) {
  constexpr int drawsOfASweep = 2 * (256 * 256 + 1);
  auto model = makeModel(1, 256, 256);
  model->setPixelPersistence(0, 1.0);  // The trace counts its updates.
  EXPECT_TRUE(waitUntil([&] {
    model->setSimulationSpeed(kFastest);
    const auto before = model->sweepsDone();
    const auto drawnBefore = processRandomSource.drawsMade();
    model->runLatticeModelInBackground();
    EXPECT_TRUE(waitUntil([&] { return model->sweepsDone() > before; }));
    model->endRunLoops();
    const auto drawn = processRandomSource.drawsMade() - drawnBefore;
    const auto sweeps = model->sweepsDone() - before;
    const auto begun = (drawn + drawsOfASweep - 1) / drawsOfASweep;
    EXPECT_GE(sweeps, begun) << "a sweep that was left counts";
    EXPECT_LE(sweeps, begun + 1) << "one may be left before its first attempt";
    EXPECT_EQ(model->varMobileHistory[0][0][0], 1.0 + static_cast<double>(model->sweepsDone()));
    EXPECT_EQ(model->redrawsFromRunLoop, model->sweepsDone());
    return drawn % drawsOfASweep != 0;
  })) << "a stop never met a sweep";
}

TEST(RunLoop, StoppingAndRestartingKeepsTheTraces) {
  auto model = makeModel(1, 3, 3);
  model->setPixelPersistence(0, 0.5);
  model->runSweeps(1);
  EXPECT_EQ(model->varMobileHistory[0][1][1], 1.5);
  model->runSweeps(1);
  EXPECT_EQ(model->varMobileHistory[0][1][1], 1.75);
  model->reinitHistory(0);
  EXPECT_EQ(model->varMobileHistory[0][1][1], 1.0);
}

TEST(RunLoop, RunningStoppingAndRunningAgainWorks) {
  auto model = makeModel(2, 20, 20);
  model->setSimulationSpeed(kFastest);
  for (int round = 0; round < 50; ++round) {
    const auto before = model->sweepsDone();
    model->runLatticeModelInBackground();
    ASSERT_TRUE(waitUntil([&] { return model->sweepsDone() > before; }));
    model->stopLatticeModel();
  }
  model->endRunLoops();
  EXPECT_EQ(model->varMyState, kStopped);
}

TEST(RunLoop, AStopRightAfterTheStartIsNeverOvertaken) {
  auto model = makeModel(2, 20, 20);
  model->setSimulationSpeed(kFastest);
  for (int round = 0; round < 50; ++round) {
    model->runLatticeModelInBackground();
    EXPECT_EQ(model->varMyState, kRunning);
    model->stopLatticeModel();
    const auto later = Clock::now() + std::chrono::milliseconds(5);
    ASSERT_TRUE(waitUntil([&] { return model->varMyState != kStopped || Clock::now() > later; }));
    ASSERT_EQ(model->varMyState, kStopped);
  }
}

TEST(RunLoop, TwoLoopsAtOnceBothSweepAndBothEnd) {
  auto model = std::make_unique<ThreadedModel>();
  addCertainFlip(*model);
  model->makeNewRule("back", kIrreversibleFlip, 1, 0);
  model->setRuleParam(1, 0.5);
  model->makeNewRule("swap", kSwap, kAnyPixelType, kAnyPixelType);
  model->setRuleParam(2, 1.0);
  model->setSimulationSpeed(kFastest);
  model->runLatticeModelInBackground();
  model->runLatticeModelInBackground();
  EXPECT_TRUE(waitUntil([&] { return model->numLoopsSeen() == 2 && model->sweepsDone() > 50; }));
  model->endRunLoops();
  for (int i = 0; i < 16; ++i)
    for (int j = 0; j < 16; ++j) {
      ASSERT_GE(model->getSiteValue(i, j), 0);
      ASSERT_LT(model->getSiteValue(i, j), 3);
    }
}

TEST(RunLoop, AnOldLoopGoesOnWhenTheStateIsRunningAgainBeforeItLooked) {
  auto model = std::make_unique<ThreadedModel>();
  model->setSimulationSpeed(kEndlessWait);
  model->runLatticeModelInBackground();
  ASSERT_TRUE(waitUntil([&] { return model->sweepsDone() == 1; })) << "now in its wait";
  model->varMyState = kPausedForPainting;
  model->runLatticeModelInBackground();
  ASSERT_TRUE(waitUntil([&] { return model->sweepsDone() == 2; })) << "the second loop's first sweep";
  model->forgetLoops();
  model->setSimulationSpeed(kFastest);
  EXPECT_TRUE(waitUntil([&] { return model->numLoopsSeen() == 2; }));
}

// That these two end is what they show.
TEST(RunLoop, QuittingEndsAWaitThatNothingElseEnds) {
  for (const int speed : {1, kEndlessWait, 0}) {
    auto model = makeModel(2, 16, 16);
    model->setSimulationSpeed(speed);
    model->runLatticeModelInBackground();
    ASSERT_TRUE(waitUntil([&] { return model->sweepsDone() == 1; }));
    model.reset();
  }
}

TEST(RunLoop, QuittingRightAfterTheStartEndsWithoutAWait) {
  for (int round = 0; round < 100; ++round) {
    auto model = makeModel(1, 2, 2);
    model->setSimulationSpeed(kEndlessWait);
    model->runLatticeModelInBackground();
    model->endRunLoops();
    ASSERT_LE(model->sweepsDone(), 1);
    ASSERT_EQ(model->varMyState, kStopped);
  }
}

TEST(RunLoop, ANewSpeedTakesEffectWithinTheWait) {
  auto model = makeModel(1, 2, 2);
  model->setSimulationSpeed(kEndlessWait);
  model->runLatticeModelInBackground();
  ASSERT_TRUE(waitUntil([&] { return model->sweepsDone() == 1; }));
  model->setSimulationSpeed(kFastest);
  EXPECT_TRUE(waitUntil([&] { return model->sweepsDone() > 5; }));
}

TEST(RunLoop, ASpeedBelowFiveWaitsUntilTheSpeedChanges) {
  auto model = makeModel(1, 1, 1);
  model->setSimulationSpeed(kEndlessWait);
  model->runLatticeModelInBackground();
  ASSERT_TRUE(waitUntil([&] { return model->sweepsDone() == 1; }));
  EXPECT_FALSE(waitUntil([&] { return model->sweepsDone() > 1; }, std::chrono::seconds(1)));
  model->setSimulationSpeed(-1);
  EXPECT_TRUE(waitUntil([&] { return model->sweepsDone() > 5; })) << "a negative speed gives no wait";
}

/// Measures the CPU time of the first sweeps and waits of its loop, which other load does not increase.
class TimedModel : public LatticeModel {
 public:
  TimedModel() {
    awakeFromNib();
    initializeLatticeModel(1, 1, 1);
  }
  ~TimedModel() override { endRunLoops(); }
  static constexpr int kMeasured = 11;
  Relaxed<double> secondsUsed;

 protected:
  void requestRedrawFromRunLoop() override {
    if (sweepsDone() > kMeasured) return;
    timespec used;
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
    secondsUsed = static_cast<double>(used.tv_sec) + 1e-9 * static_cast<double>(used.tv_nsec);
  }
};

TEST(RunLoop, TheWaitIsARealCountThatShrinksWithTheSpeed) {
  // Counts to 10^10 / speed: a tenth of the speed makes the wait ten times as long, within the noise.
  const auto timeOfWaits = [](int speed) {
    auto model = std::make_unique<TimedModel>();
    model->setSimulationSpeed(speed);
    model->runLatticeModelInBackground();
    EXPECT_TRUE(waitUntil([&] { return model->sweepsDone() >= TimedModel::kMeasured; }));
    model->endRunLoops();
    return model->secondsUsed.load();
  };
  const double fast = timeOfWaits(100'000);
  const double slow = timeOfWaits(10'000);
  EXPECT_GT(fast, 0.0001) << "no processor makes ten of the million passes in a nanosecond";
  EXPECT_GT(slow, 3 * fast);
}

TEST(RunLoop, RunningSweepsMakesExactlyAsManyAndEndsStopped) {
  auto model = makeModel(2, 9, 9);
  model->runSweeps(17);
  EXPECT_EQ(model->sweepsDone(), 17);
  EXPECT_EQ(model->varMyState, kStopped);
  EXPECT_EQ(model->redrawsFromRunLoop, 0);
  model->runSweeps(0);
  EXPECT_EQ(model->sweepsDone(), 17);
}

TEST(RunLoop, SweepsWithoutTracesGiveTheSameSitesAndDraws) {
  const auto run = [](Traces traces) {
    processRandomSource = RandomSource();
    auto model = makeModel(3, 20, 20);
    for (int type = 0; type < 3; ++type) model->setPixelPersistence(type, 0.5);
    model->makeNewRule(SharedName("swap"), 2, -1, -1);
    model->setRuleParam(0, 0.7);
    model->runSweeps(25, traces);
    return model;
  };
  const auto with = run(Traces::kUpdated);
  const double next = fRandReal();
  const auto without = run(Traces::kLeftAlone);
  EXPECT_EQ(fRandReal(), next);
  int moved = 0;
  const auto start = makeModel(3, 20, 20);
  processRandomSource = RandomSource();
  start->initializeLatticeModel(3, 20, 20);
  for (int i = 0; i < 20; ++i)
    for (int j = 0; j < 20; ++j) {
      ASSERT_EQ(without->getSiteValue(i, j), with->getSiteValue(i, j));
      const int begun = start->getSiteValue(i, j);
      if (without->getSiteValue(i, j) != begun) ++moved;
      for (int type = 0; type < 3; ++type)
        ASSERT_EQ(without->varMobileHistory[type][i][j], type == begun ? 1.0 : 0.0) << "a trace was updated";
    }
  EXPECT_GT(moved, 100);
  EXPECT_GT(with->varMobileHistoryMax[0], 1.0);
  EXPECT_EQ(without->sweepsDone(), 25);
  EXPECT_EQ(without->varMyState, kStopped);
}

TEST(RunLoop, SweepsWithoutTracesObeyAStop) {
  auto model = makeModel(2, 256, 256);
  std::thread other([&] {
    EXPECT_TRUE(waitUntil([&] { return model->sweepsDone() > 2; }));
    model->stopLatticeModel();
  });
  constexpr std::int64_t forever = std::numeric_limits<std::int64_t>::max();
  model->runSweeps(forever, Traces::kLeftAlone);
  other.join();
  EXPECT_GT(model->sweepsDone(), 2);
  EXPECT_EQ(model->varMyState, kStopped);
}

TEST(RunLoop, RunningSweepsEqualsTheLoopsOwn) {
  // Both make the same number of draws per sweep, so a loop stopped in its wait has the state of runSweeps.
  auto model = makeModel(2, 30, 30);
  model->setSimulationSpeed(kEndlessWait);
  ForeseenDraws draws;
  model->runLatticeModelInBackground();
  ASSERT_TRUE(waitUntil([&] { return model->redrawsFromRunLoop == 1; }));
  model->endRunLoops();
  const int ofLoop = draws.sinceLast();
  model->runSweeps(1);
  EXPECT_EQ(ofLoop, 2 * (30 * 30 + 1));
  EXPECT_EQ(draws.sinceLast(), ofLoop);
}

/// A model of three types with rules of several kinds, from fresh random numbers.
std::unique_ptr<TestModel> freshMixture(int imax, int jmax) {
  processRandomSource = RandomSource();
  auto model = makeModel(3, imax, jmax);
  model->makeNewRule("swap", kSwap, 0, 1);
  model->setRuleParam(0, 0.7);
  model->makeNewRule("flip", kReversibleFlip, 1, 2);
  model->setRuleParam(1, 0.9);
  model->makeNewRule("repel", kPixelPixelInteraction, 0, 1);
  model->setInteractionParams(2, 0.6);
  return model;
}

void expectSameSites(const LatticeModel& model, const LatticeModel& expected) {
  for (int i = 0; i < expected.getIMax(); ++i)
    for (int j = 0; j < expected.getJMax(); ++j)
      ASSERT_EQ(model.getSiteValue(i, j), expected.getSiteValue(i, j)) << i << ' ' << j;
}

TEST(RunLoop, OneSweeperForManyRunsGivesTheSameSitesAndDraws) {
  const auto expected = freshMixture(24, 24);
  expected->runSweeps(300);
  expected->setInteractionParams(2, -0.4);
  expected->runSweeps(3);
  const double next = fRandReal();

  const auto model = freshMixture(24, 24);
  Sweeper sweeper = model->sweeper();
  for (int k = 0; k < 300; ++k) model->runSweeps(sweeper, 1);
  model->setInteractionParams(2, -0.4);
  model->runSweeps(sweeper, 3, Traces::kLeftAlone);
  EXPECT_EQ(fRandReal(), next);
  expectSameSites(*model, *expected);
  EXPECT_EQ(model->sweepsDone(), 303);
  EXPECT_EQ(model->varMyState, kStopped);
}

TEST(RunLoop, AttemptsAreThoseOfSweeps) {
  for (const int side : {1, 2, 7, 24}) {
    SCOPED_TRACE(side);
    const auto expected = freshMixture(side, side);
    expected->runSweeps(200, Traces::kLeftAlone);
    const double next = fRandReal();

    const auto model = freshMixture(side, side);
    Sweeper sweeper = model->sweeper();
    const std::int64_t all = std::int64_t{200} * (side * side + 1);
    const std::int64_t few = std::min<std::int64_t>(all, 37);
    model->runAttempts(sweeper, few);
    model->runAttempts(sweeper, 0);
    model->runAttempts(sweeper, all - few);
    EXPECT_EQ(fRandReal(), next);
    expectSameSites(*model, *expected);
    EXPECT_EQ(model->sweepsDone(), 0);
    EXPECT_EQ(model->varMyState, kStopped);
  }
}

}  // namespace
}  // namespace quorvane
