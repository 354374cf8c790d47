#pragma once

#include <atomic>
#include <cstdint>
#include <list>
#include <string>
#include <thread>

#include "engine/Sweeper.h"
#include "model/ModelState.h"

namespace quorvane {

/// Whether sweeps update the display traces, which do not affect the lattice.
enum class Traces { kUpdated, kLeftAlone };

/// A whole system with all its operations, without a window.
///
/// The object has several megabytes: allocate it on the heap. All operations are for the main thread except
/// runLatticeModel, which blocks its thread; meanwhile the main thread may use every other operation. Indices
/// are not checked: callers keep pixel types below kMaxPixelTypes, rules below kMaxRules and sites inside the
/// lattice, including every index that they store.
class LatticeModel : public ModelState {
 public:
  /// All fields zero; awakeFromNib sets the start values.
  LatticeModel() = default;
  /// Ends every run loop that was started in the background, as endRunLoops does.
  virtual ~LatticeModel();

  // Lifecycle and structure.

  /// Start values: run state 0, no lattice, one pixel type, no rules, brush 0, neither painting nor in full
  /// screen.
  void awakeFromNib();

  /// Sets the size, fills the lattice at random and resets every trace; the run state becomes 1.
  ///
  /// With numTypes 1 to 10 also resets all types to their defaults (type 0 black, the others a random colour,
  /// named "Pixel"), the rule count to 0 and the active pair energies to 0. With numTypes -1 types, rules and
  /// pair energies are kept. Draws: fRandInt(types) for each site, i outer and j inner; then, unless numTypes
  /// is -1, red, green and blue for each type from 1 upwards. imax, jmax: 1 to 256.
  void initializeLatticeModel(int numTypes, int imax, int jmax);

  /// Sets the trace of a type to 1 where a site holds it and to 0 elsewhere, and its maximum to 1.
  void reinitHistory(int type);

  /// Appends a pixel type "New Pixel" with a random colour; callers keep the count at most 10. It is not in
  /// the rows of existing rules. Draws: red, green, blue.
  void addPixelType();

  // Accessors. Indices: t pixel type, r rule, a and b pixel types, i and j site.

  int getIMax() const;
  int getJMax() const;
  int getSiteValue(int i, int j) const;
  /// Does not change the trace and requests no redraw.
  void setSiteValue(int i, int j, int type);
  double getWidth() const;
  double getHeight() const;
  int getNumPixelTypes() const;

  const std::string& getPixelName(int t) const;
  /// Shares the given string object instead of copying it.
  void setPixelName(int t, SharedName name);
  double getPixelColorR(int t) const;
  double getPixelColorG(int t) const;
  double getPixelColorB(int t) const;
  /// Asks for a redraw.
  void setPixelColor(int t, double r, double g, double b);
  double getPixelPersistence(int t) const;
  void setPixelPersistence(int t, double persistence);
  double getPixelAlpha(int t) const;
  /// Asks for a redraw.
  void setPixelAlpha(int t, double alpha);
  int getPixelImmobile(int t) const;
  void setPixelImmobile(int t, int flag);
  int getPixelMasqueradeAs(int t) const;
  void setPixelMasqueradeAs(int t, int type);
  double getPixelField(int t) const;
  void setPixelField(int t, double energy);

  int getNumRules() const;
  const std::string& getRuleName(int r) const;
  /// Copies the text.
  void setRuleName(int r, const std::string& name);
  int getRuleDisabled(int r) const;
  /// Sets only the flag; disableInteraction and enableInteraction move an interaction rule's pair energies.
  void setRuleDisabled(int r, int flag);
  int getRuleIgnoreEnergy(int r) const;
  void setRuleIgnoreEnergy(int r, int flag);
  int getRuleType(int r) const;
  int getRulePixelA(int r) const;
  int getRulePixelB(int r) const;
  double getRuleParam(int r) const;
  /// Sets only the parameter; setInteractionParams writes an interaction rule's pair energies.
  void setRuleParam(int r, double parameter);
  int getRuleFacNum(int r) const;
  void setRuleFacNum(int r, int number);
  int getRuleFacPixel(int r) const;
  void setRuleFacPixel(int r, int type);

  double getPixelIntConstant(int a, int b) const;
  /// Writes (a, b) and (b, a).
  void setPixelIntConstant(int a, int b, double energy);
  double getPixelIntConstantBCK(int a, int b) const;
  /// Writes (a, b) and (b, a).
  void setPixelIntConstantBCK(int a, int b, double energy);

  void setPaintbrushColor(int type);
  void setFullScreen(int flag);
  void setPauseWhilePaint(int flag);

  // The rule table.

  /// Appends a rule with parameter 0, no facilitation and both flags 0, and enters it into the rows: types 0
  /// and 2 into the row of end A, type 1 into the rows of end A and of end B (possibly twice into the same
  /// row), an end of -1 meaning every row in use. Type 3 enters no row and writes no pair energy. Shares the
  /// given name object. No effect if canMakeNewRule is false.
  void makeNewRule(SharedName name, int type, int endA, int endB);

  /// True if there is a free rule slot and space in every row that the rule would enter.
  bool canMakeNewRule(int type, int endA, int endB) const;

  /// Deletes a rule: later rules move down by one, except their two flags, which stay at their index; the
  /// rows lose the rule and are renumbered. Deleting an interaction sets its active pair energies to 0 and
  /// renumbers no row.
  void delRule(int r);

  /// Removes the first occurrence of the rule from the type's row.
  void delRuleFromSiteList(int r, int type);

  /// In each row, decrements the first entry above r; later entries are not changed.
  void shiftRuleIDsInSiteLists(int r);

  // Interaction rules. A rule covers the pairs (A,B) and (B,A), where an end of -1 means every pixel type in
  // use at the time of the call.

  /// Writes the value into every pair that the rule covers, in the backup table if the rule is disabled, else
  /// in the active one.
  void setInteractionParams(int r, double value);

  /// Moves the pairs that the rule covers from the active table to the backup and sets them to 0. For a rule
  /// between any and any type only the values (t, t) are preserved in the backup.
  void disableInteraction(int r);

  /// Copies the pairs that the rule covers from the backup to the active table.
  void enableInteraction(int r);

  // The run loop.

  /// Sets the run state to 2 and runs sweeps on the calling thread until it is no longer 2. After each sweep
  /// it updates the traces, requests a redraw and waits.
  void runLatticeModel();

  /// Starts runLatticeModel on a new thread. The run state is already 2 on return, so a following stop is
  /// never overwritten. A loop that has not seen a former stop yet continues beside the new one. Throws
  /// std::system_error, with run state 1, if no thread can be created.
  void runLatticeModelInBackground();

  /// Sets the run state to 1 and returns at once; the loop ends at its next check.
  void stopLatticeModel();

  /// Stops every background loop, ends its wait and joins it, which takes at most one sweep. Overwrites the
  /// run state and the speed. A derived class that overrides a redraw request must call this in its
  /// destructor.
  void endRunLoops();

  /// Sets the divisor of the wait: after each sweep the loop counts to (10^10 / speed) xor 10. Takes effect
  /// within a wait. From 5 on the wait ends; for 0 to 4 it lasts until the speed changes; for negative values
  /// there is none.
  void setSimulationSpeed(int speed);

  /// Makes count sweeps with history updates on the calling thread, like the run loop but without redraws and
  /// waits. Returns early if the run state, 2 meanwhile, changes; otherwise it ends as 1. Without traces a
  /// sweep is faster and otherwise the same.
  void runSweeps(std::int64_t count, Traces traces = Traces::kUpdated);

  /// For a caller that makes many short runs: keeps from one to the next what compiling the rules took.
  /// Refers to this model and belongs to one thread.
  Sweeper sweeper() { return Sweeper(arrays()); }
  /// The same as without a sweeper of this model, and takes no longer than its sweeps.
  void runSweeps(Sweeper& sweeper, std::int64_t count, Traces traces = Traces::kUpdated);
  /// Makes count attempts at random sites like those of a sweep, without history updates. The number of
  /// sweeps stays.
  void runAttempts(Sweeper& sweeper, std::int64_t count);

  /// If the model is stopped: makes one whole sweep with a history update on the calling thread, like the run
  /// loop, and requests one redraw. In any other run state returns false and does nothing. The state stays 1,
  /// so that a waiting loop of a former run ends; a loop that is still inside its last sweep is waited for,
  /// at most an attempt and an update of the traces.
  bool sweepOnce();

  /// One sweep: varImax * varJmax + 1 attempts at random sites, ended early if the run state is not 2. Draws
  /// per attempt: fRandInt(varImax), fRandInt(varJmax) and those of fModelCycle. For concurrent changes see
  /// Sweeper.
  void sweep();

  /// Decays every trace by its type's persistence, adds 1 where a site holds the type, and updates the
  /// maxima, which are at least 1.
  void updateHistory();

  /// Paints a site: sets its type, the trace of the type there to the type's maximum, and the traces of the
  /// other types there to 0. No redraw.
  void paintSiteAs(int i, int j, int type);

  /// The number of sweeps by run loops, runSweeps and sweepOnce since the model was created, including
  /// interrupted ones.
  std::int64_t sweepsDone() const { return sweepsDone_; }
  /// For a model that goes on where another one stood.
  void setSweepsDone(std::int64_t sweeps) { sweepsDone_ = sweeps; }

 protected:
  /// Called on the main thread when the picture has changed.
  virtual void requestRedraw() {}
  /// Called on the run loop's thread after every sweep.
  virtual void requestRedrawFromRunLoop() {}
  /// Called on the main thread after initializeLatticeModel has made another lattice.
  virtual void latticeReplaced() {}

 private:
  struct BackgroundLoop {
    std::thread thread;
    std::atomic<bool> finished{false};
  };

  void sweepWhileRunning();
  SystemArrays arrays();
  bool sweepIfRunning(Sweeper& sweeper);
  void makeSweep(Sweeper& sweeper, RunState whileState, Traces traces);
  void waitUntilNoLoopSweeps();
  void waitAfterSweep() const;
  void joinFinishedLoops();

  void appendToRow(int type, int rule);
  void copyRuleDown(int from);
  void clearRule(int r);
  void clearInteraction(int endA, int endB);

  Relaxed<std::int64_t> sweepsDone_;
  /// Until the traces of a type are checked for small values again.
  Relaxed<int> uncheckedTraceUpdates_[kMaxPixelTypes];
  std::atomic<int> loopsInASweep_{0};
  std::list<BackgroundLoop> backgroundLoops_;
};

}  // namespace quorvane
