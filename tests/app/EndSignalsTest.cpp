#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <initializer_list>
#include <thread>

#include "app/EndSignals.h"

namespace quorvane {
namespace {

using ::testing::ExitedWithCode;
using ::testing::KilledBySignal;

/// All are handled one after another, however slowly this process runs.
void raiseTogether(std::initializer_list<int> numbers) {
  sigset_t raised, former;
  sigemptyset(&raised);
  for (const int each : numbers) sigaddset(&raised, each);
  ::sigprocmask(SIG_BLOCK, &raised, &former);
  for (const int each : numbers) std::raise(each);
  ::sigprocmask(SIG_SETMASK, &former, nullptr);
}

/// A process that handles no events, like one that hangs.
void hang(std::initializer_list<int> first, std::initializer_list<int> aSecondLater) {
  for (const int each : {SIGINT, SIGTERM, SIGHUP}) std::signal(each, SIG_DFL);
  const EndSignals endSignals;
  raiseTogether(first);
  if (aSecondLater.size() > 0) std::this_thread::sleep_for(std::chrono::milliseconds(1100));
  raiseTogether(aSecondLater);
  ::_exit(7);
}

TEST(EndSignals, ThatComeAtOnceCountAsOne) {
  EXPECT_EXIT(hang({SIGINT, SIGTERM, SIGHUP}, {}), ExitedWithCode(7), "");
}

TEST(EndSignals, ASecondLaterEndAProcessThatHangs) {
  EXPECT_EXIT(hang({SIGINT, SIGTERM}, {SIGHUP}), KilledBySignal(SIGHUP), "");
}

}  // namespace
}  // namespace quorvane
