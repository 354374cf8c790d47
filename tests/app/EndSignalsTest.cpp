#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "app/EndSignals.h"

namespace quorvane {
namespace {

using ::testing::ExitedWithCode;
using ::testing::KilledBySignal;

/// A process that handles no events, like one that hangs.
void hang(std::chrono::milliseconds betweenSignals) {
  for (const int each : {SIGINT, SIGTERM, SIGHUP}) std::signal(each, SIG_DFL);
  const EndSignals endSignals;
  std::raise(SIGINT);
  std::raise(SIGTERM);
  std::this_thread::sleep_for(betweenSignals);
  std::raise(SIGHUP);
  ::_exit(7);
}

TEST(EndSignals, ThatComeAtOnceCountAsOne) {
  EXPECT_EXIT(hang(std::chrono::milliseconds(0)), ExitedWithCode(7), "");
}

TEST(EndSignals, ASecondLaterEndAProcessThatHangs) {
  EXPECT_EXIT(hang(std::chrono::milliseconds(1100)), KilledBySignal(SIGHUP), "");
}

}  // namespace
}  // namespace quorvane
