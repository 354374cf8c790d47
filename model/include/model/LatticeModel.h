#pragma once

#include <atomic>
#include <cstdint>
#include <list>
#include <string>
#include <thread>

#include "engine/Sweeper.h"
#include "model/ModelState.h"

namespace quorvane {

/// Whether sweeps update the display traces, which take no part in what happens on the lattice.
enum class Traces { kUpdated, kLeftAlone };

/// A whole system and everything that can be done to it, without a window.
///
/// The object is several megabytes large: make it on the heap. All operations belong to the main thread, but
/// runLatticeModel, which blocks the thread that calls it; the main thread may use every other operation
/// while it runs. Indices are not checked: callers keep pixel types below kMaxPixelTypes, rules below
/// kMaxRules and sites inside the lattice, and every index they store too.
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
  /// With numTypes 1 to 10 also gives all types their defaults (type 0 black, the others a random colour,
  /// named "Pixel"), sets the rule count to 0 and the active pair energies to 0. With numTypes -1 types,
  /// rules and pair energies stay. Draws: fRandInt(types) for each site, i outer and j inner; then, unless
  /// numTypes is -1, red, green and blue for each type from 1 upwards. imax, jmax: 1 to 256.
  void initializeLatticeModel(int numTypes, int imax, int jmax);

  /// Sets the trace of a type to 1 where a site holds it and to 0 elsewhere, and its maximum to 1.
  void reinitHistory(int type);

  /// Appends a pixel type "New Pixel" of a random colour; callers keep the count at most 10. It stands in no
  /// row of rules until a rule is made for it. Draws: red, green, blue.
  void addPixelType();

  // Accessors. Indices: t pixel type, r rule, a and b pixel types, i and j site.

  int getIMax() const;
  int getJMax() const;
  int getSiteValue(int i, int j) const;
  /// Leaves the trace as it is and asks for no redraw.
  void setSiteValue(int i, int j, int type);
  double getWidth() const;
  double getHeight() const;
  int getNumPixelTypes() const;

  const std::string& getPixelName(int t) const;
  /// Keeps the given string object, not a copy of it.
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
  /// Keeps a copy of the text.
  void setRuleName(int r, const std::string& name);
  int getRuleDisabled(int r) const;
  /// The flag alone; disableInteraction and enableInteraction move an interaction rule's pair energies.
  void setRuleDisabled(int r, int flag);
  int getRuleIgnoreEnergy(int r) const;
  void setRuleIgnoreEnergy(int r, int flag);
  int getRuleType(int r) const;
  int getRulePixelA(int r) const;
  int getRulePixelB(int r) const;
  double getRuleParam(int r) const;
  /// The parameter alone; setInteractionParams writes an interaction rule's pair energies.
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
  /// and 2 into the row of end A, type 1 into the rows of end A and of end B (so it may stand in a row
  /// twice), an end of -1 meaning every row in use. Type 3 enters no row and writes no pair energy. Keeps the
  /// given name object. Has no effect when canMakeNewRule says no.
  void makeNewRule(SharedName name, int type, int endA, int endB);

  /// True if there is a rule slot left and a place in every row that the rule would enter.
  bool canMakeNewRule(int type, int endA, int endB) const;

  /// Deletes a rule: later rules move down by one with everything but their two flags, which stay at their
  /// index; the rows lose the rule and are renumbered. Deleting an interaction sets its active pair energies
  /// to 0 and renumbers no row.
  void delRule(int r);

  /// Takes the first occurrence of the rule out of the type's row.
  void delRuleFromSiteList(int r, int type);

  /// In each row, lowers the first entry above r by one; later entries keep their numbers.
  void shiftRuleIDsInSiteLists(int r);

  // Interaction rules. The pairs that a rule covers are (A,B) and (B,A), with an end of -1 standing for every
  // pixel type in use when the operation is called.

  /// Writes the value into every pair that the rule covers, in the backup table if the rule is disabled, else
  /// in the active one.
  void setInteractionParams(int r, double value);

  /// Moves the pairs that the rule covers from the active table to the backup and sets them to 0. Of a rule
  /// between any and any type only the values (t, t) survive in the backup.
  void disableInteraction(int r);

  /// Copies the pairs that the rule covers from the backup to the active table.
  void enableInteraction(int r);

  // The run loop.

  /// Runs sweeps on the calling thread until the run state is no longer 2, which it sets first. After each
  /// sweep it updates the traces, asks for a redraw and waits.
  void runLatticeModel();

  /// Starts runLatticeModel on a thread of its own. The run state is 2 when it returns, so a stop that
  /// follows is never overtaken. A loop that a stop has not reached yet goes on beside the new one. Where the
  /// system has no thread left, throws std::system_error with the run state 1.
  void runLatticeModelInBackground();

  /// Sets the run state to 1 and returns at once; the loop ends at its next check.
  void stopLatticeModel();

  /// Stops every loop in the background, ends its wait and joins it: at most one sweep's time. The run state
  /// and the speed are lost. A derived class that overrides a redraw request calls it in its destructor.
  void endRunLoops();

  /// Sets the divisor of the wait: after each sweep the loop counts to (10^10 / speed) xor 10. Takes effect
  /// within a wait. 5 and more give a wait that ends; 1 to 4, and 0, one that lasts until the speed changes;
  /// a negative speed gives none.
  void setSimulationSpeed(int speed);

  /// Makes count sweeps, each with its history, on the calling thread, exactly as the run loop does but
  /// without redraws and waits. Leaves early when the run state, 2 meanwhile, becomes another; else it ends
  /// as 1. Where nobody looks at the traces, a sweep that leaves them alone is faster and otherwise the same.
  void runSweeps(std::int64_t count, Traces traces = Traces::kUpdated);

  /// While the model is stopped: one whole sweep with its history on the calling thread, exactly as the run
  /// loop makes it, and one redraw. False, and nothing happens, in any other run state. The state stays 1, so
  /// that no loop of a former run takes it for its own; one that is still inside its last sweep is waited
  /// for, at most an attempt and an update of the traces.
  bool sweepOnce();

  /// One sweep: varImax * varJmax + 1 attempts at random sites, left early when the run state is not 2. Draws
  /// for each attempt fRandInt(varImax), fRandInt(varJmax) and those of fModelCycle. What is changed
  /// meanwhile takes effect as Sweeper says.
  void sweep();

  /// Lets every trace decay by its type's persistence, adds 1 where a site holds the type, and finds the new
  /// maxima, which are at least 1.
  void updateHistory();

  /// Sweeps that the run loops, runSweeps and sweepOnce have finished since the model was made; a stopped
  /// sweep counts too.
  std::int64_t sweepsDone() const { return sweepsDone_; }

 protected:
  /// Called on the main thread when what is shown has changed.
  virtual void requestRedraw() {}
  /// Called on the run loop's thread after every sweep.
  virtual void requestRedrawFromRunLoop() {}
  /// Called on the main thread when initializeLatticeModel has made another lattice.
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
  std::atomic<int> loopsInASweep_{0};
  std::list<BackgroundLoop> backgroundLoops_;
};

}  // namespace quorvane
