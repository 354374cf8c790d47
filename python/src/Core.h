#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "model/LatticeModel.h"

namespace quorvane {

/// A model of the Python module. For threads that hold the interpreter's lock.
class Core {
 public:
  /// Awake, without a lattice.
  Core();
  ~Core();
  Core(const Core&) = delete;
  Core& operator=(const Core&) = delete;

  /// Throws InUse while another thread sweeps it.
  LatticeModel& use();
  /// For operations that draw: throws InUse while another thread sweeps any model.
  LatticeModel& useWithSource();

  /// May be called while another thread sweeps, for its progress.
  std::int64_t sweepsDone() const { return model_->sweepsDone(); }

  /// Called between sweeps, with the lock of the interpreter; throws to end the run.
  using Interlude = std::function<void()>;
  /// Calls work without the lock of the interpreter.
  using Unlocked = void (*)(const std::function<void()>& work);

  /// Makes sweeps, with an interlude at least once in some tens of milliseconds and after the last.
  void sweep(std::int64_t count, Traces traces, Unlocked unlocked, const Interlude& interlude);
  /// The same for attempts.
  void step(std::int64_t attempts, Unlocked unlocked, const Interlude& interlude);

  /// The document's text and everything else that a checkpoint keeps of a model, as bytes. Throws
  /// CheckpointError for bytes that are of no model, or not of this version; then the model is as before.
  std::string state();
  void restore(const std::string& bytes);

 private:
  std::unique_ptr<LatticeModel> model_;
  std::unique_ptr<Sweeper> sweeper_;
};

}  // namespace quorvane
