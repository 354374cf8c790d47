#pragma once

#include <stdexcept>

/// Which model is being swept. There is one source of random numbers for the process, so one sweep at a time
/// keeps runs reproducible. All functions are for threads that hold the interpreter's lock, which a sweep
/// releases.
namespace quorvane {

class Core;

/// A model or the random source that another thread uses. Python sees a RuntimeError.
class InUse : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Keeps all other threads from the model and the random source during a sweep. The thread itself may use
/// both between two sweeps, as a signal handler of Python does.
class Sweeping {
 public:
  /// Throws InUse.
  explicit Sweeping(const Core& core);
  ~Sweeping();
  Sweeping(const Sweeping&) = delete;
  Sweeping& operator=(const Sweeping&) = delete;

 private:
  struct State;
  friend void requireNotSwept(const Core& core);
  friend void requireSource();
  friend void freeSource();
  friend void forget(const Core& core);

  static State& state();

  const Core* core_;
  const Core* outer_;  ///< the model of a sweep in which this one was made, if any
};

/// Throws InUse while another thread sweeps the model, and for ever if this process was forked meanwhile,
/// since the sweep will not end here.
void requireNotSwept(const Core& core);
/// The same for the source of random numbers.
void requireSource();
/// As requireSource; but where this process was forked during a sweep, the source may be used from now on.
/// For callers that start it anew.
void freeSource();
/// To be called when a model is dropped.
void forget(const Core& core);

}  // namespace quorvane
