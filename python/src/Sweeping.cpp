#include "Sweeping.h"

#include <unistd.h>

#include <set>
#include <thread>
#include <utility>

namespace quorvane {

struct Sweeping::State {
  const Core* swept = nullptr;
  std::thread::id thread;
  pid_t process = 0;
  /// Models in the middle of a sweep that was going on when this process was forked.
  std::set<const Core*> torn;

  bool isElsewhere() const {
    return swept && (process != ::getpid() || thread != std::this_thread::get_id());
  }
  bool isOfAFork() const { return swept && process != ::getpid(); }
};

Sweeping::State& Sweeping::state() {
  // Never destroyed: at its end the interpreter drops models after the destructors of statics.
  static auto* const state = new State();
  return *state;
}

Sweeping::Sweeping(const Core& core) : core_(&core) {
  requireNotSwept(core);
  requireSource();
  State& now = state();
  outer_ = std::exchange(now.swept, &core);
  now.thread = std::this_thread::get_id();
  now.process = ::getpid();
}

Sweeping::~Sweeping() {
  state().swept = outer_;
  // A signal handler may have forked: then this sweep went on in the new process, too, and is whole.
  state().torn.erase(core_);
}

void requireNotSwept(const Core& core) {
  const Sweeping::State& now = Sweeping::state();
  if (now.torn.contains(&core) || (now.swept == &core && now.isOfAFork()))
    throw InUse("another thread was sweeping this model when the process was forked; open it again");
  if (now.swept == &core && now.isElsewhere()) throw InUse("another thread is sweeping this model");
}

void requireSource() {
  const Sweeping::State& now = Sweeping::state();
  if (now.isOfAFork())
    throw InUse(
        "another thread was drawing random numbers when the process was forked; call quorvane.seed first");
  if (now.isElsewhere())
    throw InUse(
        "another thread is sweeping a model, and the process has one source of random numbers; use processes "
        "to sweep at the same time");
}

void freeSource() {
  Sweeping::State& now = Sweeping::state();
  if (now.isOfAFork()) now.torn.insert(std::exchange(now.swept, nullptr));
  requireSource();
}

void forget(const Core& core) {
  Sweeping::State& now = Sweeping::state();
  if (now.swept == &core) now.swept = nullptr;
  now.torn.erase(&core);
}

}  // namespace quorvane
