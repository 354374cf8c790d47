#include "app/EndSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <ctime>

namespace quorvane {
namespace {

constexpr int kEndSignals[] = {SIGINT, SIGTERM, SIGHUP};

/// A handler may do next to nothing, but it may write to a pipe, whose reader is the event loop.
int pipeEnds[2] = {-1, -1};
std::atomic<int> askedBy{0};
std::atomic<std::int64_t> askedAt{0};
static_assert(std::atomic<int>::is_always_lock_free && std::atomic<std::int64_t>::is_always_lock_free,
              "a signal handler may use nothing else");

void handle(int signal, void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  ::sigemptyset(&action.sa_mask);
  for (const int other : kEndSignals) ::sigaddset(&action.sa_mask, other);
  action.sa_flags = SA_RESTART;  // files are read and written on
  ::sigaction(signal, &action, nullptr);
}

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

extern "C" void onEndSignal(int signal) {
  constexpr std::int64_t sameWish = 1000;
  const int before = errno;
  int nobody = 0;
  if (askedBy.compare_exchange_strong(nobody, signal)) {
    askedAt = milliseconds();
    const char wake = 0;
    static_cast<void>(!::write(pipeEnds[1], &wake, 1));
  } else if (milliseconds() - askedAt >= sameWish) {
    endBySignal(signal);
  }
  errno = before;
}

int openPipe() {
  static_cast<void>(!::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK));
  return pipeEnds[0];
}

}  // namespace

EndSignals::EndSignals(QObject* parent) : QObject(parent), notifier_(openPipe(), QSocketNotifier::Read) {
  handle(SIGPIPE, SIG_IGN);
  handle(SIGXFSZ, SIG_IGN);
  if (pipeEnds[0] < 0) return;
  connect(&notifier_, &QSocketNotifier::activated, this, &EndSignals::receive);
  for (const int signal : kEndSignals) handleUnlessIgnored(signal, onEndSignal);
}

void EndSignals::receive() {
  notifier_.setEnabled(false);
  emit received(askedBy);
}

void endBySignal(int signal) {
  // Within a handler the signal waits until the handler has returned.
  handle(signal, SIG_DFL);
  ::raise(signal);
}

}  // namespace quorvane
