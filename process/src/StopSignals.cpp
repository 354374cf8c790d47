#include "process/StopSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <ctime>

namespace quorvane {
namespace {

constexpr int kStopSignals[] = {SIGINT, SIGTERM, SIGHUP};

/// write() is async-signal-safe, so the handler wakes the event loop through a pipe.
int pipeEnds[2] = {-1, -1};
std::atomic<int> askedBy{0};
std::atomic<std::int64_t> askedAt{0};
static_assert(std::atomic<int>::is_always_lock_free && std::atomic<std::int64_t>::is_always_lock_free,
              "a signal handler may use nothing else");

void handle(int signal, void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  ::sigemptyset(&action.sa_mask);
  for (const int other : kStopSignals) ::sigaddset(&action.sa_mask, other);
  action.sa_flags = SA_RESTART;  // interrupted reads and writes continue
  ::sigaction(signal, &action, nullptr);
}

/// nohup and shells without job control start programs with some signals ignored, and expect them to stay so.
void handleUnlessIgnored(int signal, void (*handler)(int)) {
  struct sigaction before = {};
  ::sigaction(signal, nullptr, &before);
  if (before.sa_handler != SIG_IGN) handle(signal, handler);
}

std::int64_t milliseconds() {
  timespec now = {};
  ::clock_gettime(CLOCK_MONOTONIC, &now);
  return std::int64_t{1000} * now.tv_sec + now.tv_nsec / 1'000'000;
}

void wakeEventLoop() {
  const int before = errno;
  const char any = 0;
  if (pipeEnds[1] >= 0) static_cast<void>(!::write(pipeEnds[1], &any, 1));
  errno = before;
}

extern "C" void onStopSignal(int signal) {
  constexpr std::int64_t sameWish = 1000;
  int none = 0;
  // The mask of the action blocks other stop signals until this handler returns.
  if (askedBy.compare_exchange_strong(none, signal)) {
    askedAt = milliseconds();
    wakeEventLoop();
  } else if (milliseconds() - askedAt >= sameWish) {
    endBySignal(signal);
  }
}

}  // namespace

void watchStopSignals() {
  for (const int signal : kStopSignals) handleUnlessIgnored(signal, onStopSignal);
  failWritesInstead();
}

void failWritesInstead() {
  handle(SIGPIPE, SIG_IGN);
  handle(SIGXFSZ, SIG_IGN);
}

void endBySignal(int signal) {
  // Raised within a handler, the signal is pending until the handler returns.
  handle(signal, SIG_DFL);
  ::raise(signal);
}

int stopSignal() { return askedBy; }

int stopSignalDescriptor() {
  if (pipeEnds[0] < 0) static_cast<void>(!::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK));
  return pipeEnds[0];
}

SignalsHeld::SignalsHeld() {
  sigset_t all;
  ::sigfillset(&all);
  ::pthread_sigmask(SIG_BLOCK, &all, &before_);
}

SignalsHeld::~SignalsHeld() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

}  // namespace quorvane
