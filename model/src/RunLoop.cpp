#ifdef __linux__
#include <sys/resource.h>
#endif

#include <cstdint>
#include <limits>

#include "engine/f_LMlattice.h"
#include "engine/f_ran0.h"
#include "model/LatticeModel.h"
#include "model/Wait.h"

namespace quorvane {
namespace {

/// The product of a trace and its persistence.
class Decay {
 public:
  explicit Decay(double persistence) : persistence_(persistence) {}

  double operator()(double trace) {
    // Processors take up to a hundred times as long for a product below the normal numbers. A trace that
    // nothing has fed for thousands of sweeps stays at one such value, so the last product is kept.
    constexpr double tiny = 2 * std::numeric_limits<double>::min();
    if (!(trace > 0.0 && trace < tiny)) [[likely]]
      return trace * persistence_;
    if (trace != lastTrace_) {
      lastTrace_ = trace;
      lastProduct_ = trace * persistence_;
    }
    return lastProduct_;
  }

 private:
  double persistence_;
  double lastTrace_ = 0.0;
  double lastProduct_ = 0.0;
};

/// Lowers the priority of the calling thread, so that a window answers at once where cores are few. The loop
/// keeps every core that nobody else wants.
void letOthersGoFirst() {
#ifdef __linux__
  constexpr int niceness = 10;
  // Here a thread's priority goes by its own id, which 0 stands for. Where it is refused, the run goes on.
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

void LatticeModel::sweepWhileRunning() {
  while (varMyState == kRunning) {
    sweepWithHistory();
    requestRedrawFromRunLoop();
    waitAfterSweep();
  }
}

void LatticeModel::runSweeps(std::int64_t count) {
  varMyState = kRunning;
  for (; count > 0 && varMyState == kRunning; --count) sweepWithHistory();
  if (varMyState == kRunning) stopLatticeModel();
}

void LatticeModel::sweepWithHistory() {
  sweep();
  updateHistory();
  sweepsDone_ = sweepsDone_ + 1;
}

void LatticeModel::sweep() {
  // One attempt more than there are sites.
  for (int k = 0; k <= varImax * varJmax; ++k) {
    if (varMyState != kRunning) return;
    attempt();
  }
}

void LatticeModel::attempt() {
  const int imax = varImax, jmax = varJmax;
  const int i = fRandInt(imax) - 1;
  const int j = fRandInt(jmax) - 1;
  if (imax < 1 || jmax < 1) return;  // No lattice yet, so no site to try.
  fModelCycle(i, j, imax, jmax, varSiteValues, varNumSiteTypes, varNumRules, varRuleType, varRuleDisabled,
              varRuleIgnoreEnergy, varRuleEndPoints, varRuleParameter, varRuleFacNumAndType,
              varAccessibleRulesForSiteID, varAccessibleRulesForSiteIDCount, varPixelImmobile, varSiteField,
              varSiteMasqueradeAs, varInteractionConstants);
}

void LatticeModel::updateHistory() {
  for (int type = 0; type < varNumSiteTypes; ++type) updateHistoryOf(type);
}

void LatticeModel::updateHistoryOf(int type) {
  const int imax = varImax, jmax = varJmax;
  Decay decay(varHistoryPersistenceConst[type]);
  double max = 0.0;
  for (int i = 0; i < imax; ++i) {
    const auto& sites = varSiteValues[i];
    auto& traces = varMobileHistory[type][i];
    for (int j = 0; j < jmax; ++j) {
      // Looked up rather than branched to: which sites hold the type cannot be predicted.
      const double decayed = decay(traces[j]);
      const double outcomes[] = {decayed, 1.0 + decayed};
      const double trace = outcomes[sites[j] == type ? 1 : 0];
      traces[j] = trace;
      max = trace > max ? trace : max;
    }
  }
  varMobileHistoryMax[type] = 1.0 > max ? 1.0 : max;
}

void LatticeModel::waitAfterSweep() const {
  countBeyond([this] { return waitBound(varDelayAfterCycle); });
}

}  // namespace quorvane
