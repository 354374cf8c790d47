#ifdef __linux__
#include <sys/resource.h>
#endif

#include <cstdint>
#include <limits>

#include "model/LatticeModel.h"
#include "model/Wait.h"

namespace quorvane {
namespace {

/// Lowers the priority of the calling thread a little, so that the window stays responsive on few cores. Idle
/// cores are still fully used, and a busy process of normal priority leaves the run a fourth of their core.
void letOthersGoFirst() {
#ifdef __linux__
  constexpr int niceness = 5;
  // On Linux setpriority with id 0 applies to the calling thread. Failure is ignored.
  static_cast<void>(setpriority(PRIO_PROCESS, 0, niceness));
#endif
}

}  // namespace

LatticeModel::~LatticeModel() { endRunLoops(); }

void LatticeModel::runLatticeModel() {
  varMyState = kRunning;
  sweepWhileRunning();
}

void LatticeModel::runLatticeModelInBackground() {
  joinFinishedLoops();
  varMyState = kRunning;
  BackgroundLoop& loop = backgroundLoops_.emplace_back();
  try {
    loop.thread = std::thread([this, &loop] {
      letOthersGoFirst();
      sweepWhileRunning();
      loop.finished = true;
    });
  } catch (...) {
    backgroundLoops_.pop_back();
    stopLatticeModel();
    throw;
  }
}

void LatticeModel::stopLatticeModel() { varMyState = kStopped; }

void LatticeModel::endRunLoops() {
  if (backgroundLoops_.empty()) return;
  stopLatticeModel();
  setSimulationSpeed(std::numeric_limits<std::int32_t>::max());
  for (BackgroundLoop& loop : backgroundLoops_) loop.thread.join();
  backgroundLoops_.clear();
}

void LatticeModel::joinFinishedLoops() {
  backgroundLoops_.remove_if([](BackgroundLoop& loop) {
    if (!loop.finished) return false;
    loop.thread.join();
    return true;
  });
}

SystemArrays LatticeModel::arrays() {
  return {varImax,
          varJmax,
          varNumSiteTypes,
          varSiteValues,
          {varRuleType, varRuleDisabled, varRuleIgnoreEnergy, varRuleEndPoints, varRuleParameter,
           varRuleFacNumAndType, varAccessibleRulesForSiteID, varAccessibleRulesForSiteIDCount,
           varPixelImmobile, varSiteField, varSiteMasqueradeAs, varInteractionConstants}};
}

void LatticeModel::sweepWhileRunning() {
  Sweeper sweeper(arrays());
  while (sweepIfRunning(sweeper)) {
    requestRedrawFromRunLoop();
    waitAfterSweep();
  }
}

bool LatticeModel::sweepIfRunning(Sweeper& sweeper) {
  // Incremented before the state is read: once the run is stopped and the count is 0, no sweep can begin.
  loopsInASweep_.fetch_add(1, std::memory_order_acq_rel);
  const bool running = varMyState == kRunning;
  if (running) makeSweep(sweeper, kRunning, Traces::kUpdated);
  loopsInASweep_.fetch_sub(1, std::memory_order_acq_rel);
  loopsInASweep_.notify_all();
  return running;
}

void LatticeModel::waitUntilNoLoopSweeps() {
  // A read-modify-write instead of a load: a loop that increments the count later then sees the state set
  // before.
  const auto loops = [this] { return loopsInASweep_.fetch_add(0, std::memory_order_acq_rel); };
  for (int sweeping = loops(); sweeping > 0; sweeping = loops()) loopsInASweep_.wait(sweeping);
}

bool LatticeModel::sweepOnce() {
  if (varMyState != kStopped) return false;
  waitUntilNoLoopSweeps();
  Sweeper sweeper(arrays());
  makeSweep(sweeper, kStopped, Traces::kUpdated);
  requestRedraw();
  return true;
}

void LatticeModel::runSweeps(std::int64_t count, Traces traces) {
  Sweeper forThisRun = sweeper();
  runSweeps(forThisRun, count, traces);
}

void LatticeModel::runSweeps(Sweeper& sweeper, std::int64_t count, Traces traces) {
  varMyState = kRunning;
  for (; count > 0 && varMyState == kRunning; --count) makeSweep(sweeper, kRunning, traces);
  if (varMyState == kRunning) stopLatticeModel();
}

void LatticeModel::runAttempts(Sweeper& sweeper, std::int64_t count) {
  varMyState = kRunning;
  sweeper.attempts(count, varMyState, kRunning);
  if (varMyState == kRunning) stopLatticeModel();
}

void LatticeModel::makeSweep(Sweeper& sweeper, RunState whileState, Traces traces) {
  sweeper.sweep(varMyState, whileState);
  if (traces == Traces::kUpdated) updateHistory();
  sweepsDone_ = sweepsDone_ + 1;
}

void LatticeModel::sweep() { Sweeper(arrays()).sweep(varMyState, kRunning); }

void LatticeModel::waitAfterSweep() const {
  countBeyond([this] { return waitBound(varDelayAfterCycle); });
}

}  // namespace quorvane
