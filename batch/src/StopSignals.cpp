#include "batch/StopSignals.h"

#include <unistd.h>

#include <atomic>

namespace quorvane {
namespace {

std::atomic<int> askedBy{0};
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler may use nothing else");

void handle(int signal, void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;  // files are read and written on
  ::sigaction(signal, &action, nullptr);
}

extern "C" void onStopSignal(int signal) {
  int nobody = 0;
  if (!askedBy.compare_exchange_strong(nobody, signal)) endBySignal(signal);
}

}  // namespace

void watchStopSignals() {
  handle(SIGINT, onStopSignal);
  handle(SIGTERM, onStopSignal);
  handle(SIGPIPE, SIG_IGN);
  handle(SIGXFSZ, SIG_IGN);
}

void endBySignal(int signal) {
  // Within a handler the signal waits until the handler has returned.
  handle(signal, SIG_DFL);
  ::raise(signal);
}

int stopSignal() { return askedBy; }

SignalsHeld::SignalsHeld() {
  sigset_t all;
  ::sigfillset(&all);
  ::pthread_sigmask(SIG_BLOCK, &all, &before_);
}

SignalsHeld::~SignalsHeld() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

}  // namespace quorvane
