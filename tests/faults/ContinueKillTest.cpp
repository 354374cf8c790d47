#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <csignal>

#include "DocumentSupport.h"
#include "Faults.h"
#include "KillMoments.h"
#include "Process.h"
#include "SharedPlan.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kCheckpoint = "run.checkpoint";

/// Runs with every kind of result that are killed and continued. None waits for the disk, since fsync matters
/// only for a loss of power.
class KilledRun : public testing::Test {
 protected:
  using Words = std::vector<std::string>;

  KilledRun() {
    set(*plan_, folder_, {Call::kAny, 0}, 0);
    put(document_, joined(sampleLines()));
  }

  Words words(const std::string& sweeps, const std::string& every) const {
    return {document_,        "--sweeps",      sweeps,        "--every",   every,         "--output",
            folder_ / "o",    "--populations", folder_ / "p", "--measure", folder_ / "m", "--observables",
            "kept,energy",    "--lattices",    folder_ / "l", "--picture", folder_ / "x", "--frames",
            folder_ / "film", "--scale",       "1",           "--trace"};
  }
  Words withCheckpoints(Words run) const {
    run.insert(run.end(), {"--checkpoint", folder_ / kCheckpoint, "--checkpoint-every", "0.001"});
    return run;
  }
  Words continuation(const std::string& sweeps) const {
    return {"--continue", folder_ / kCheckpoint, "--sweeps", sweeps};
  }

  Files results() const {
    Files files = filesIn(folder_);
    files.erase(kCheckpoint);
    return files;
  }
  Files inOneGo(const Words& run) {
    EXPECT_EQ(quorvane::run(QUORVANE_BATCH, run).status, 0);
    const Files files = results();
    empty();
    return files;
  }
  void empty() const {
    for (const auto& entry : fs::directory_iterator(folder_)) fs::remove_all(entry.path());
  }
  bool hasCheckpoint() const { return fs::exists(folder_ / kCheckpoint); }

  /// Kills a program at a random moment. True if it had not ended by then.
  bool killed(const Words& run, KillMoments& moments) const {
    Process program(QUORVANE_BATCH, run);
    program.waitFor(moments.next());
    program.kill();
    const Finished finished = program.wait();
    const bool early = finished.status == -SIGKILL;
    if (!early) {
      EXPECT_EQ(finished.err, "");
      EXPECT_EQ(finished.status, 0);
    }
    moments.add(early);
    return early;
  }

  void expectAsInOneGo(const Files& expected) const {
    const Finished finished = quorvane::run(QUORVANE_BATCH, continuation("1000"));
    ASSERT_EQ(finished.status, 0) << finished.err;
    ASSERT_EQ(finished.err, "");
    const Files files = results();
    ASSERT_EQ(files.size(), expected.size());
    for (const auto& [name, content] : expected) ASSERT_TRUE(files.at(name) == content) << name;
    ASSERT_THAT(partialFilesIn(folder_), IsEmpty());
  }

  const TemporaryFolder temporary_, elsewhere_;
  const fs::path folder_ = fs::canonical(temporary_.path());
  const std::string document_ = elsewhere_ / "in";
  const SharedPlan plan_;
};

TEST_F(KilledRun, ContinuedLeavesTheBytesOfOneGoWheneverItWasKilled) {
  constexpr int rounds = 200;
  const Files expected = inOneGo(words("1000", "7"));
  const Words start = withCheckpoints(words("500", "7"));
  KillMoments ofStarts, ofContinuations;
  int numKilled = 0, numContinuationsKilled = 0;
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE(round);
    empty();
    if (killed(start, ofStarts)) ++numKilled;
    // A run that is killed before its first checkpoint begins again.
    while (!hasCheckpoint()) killed(start, ofStarts);
    // Half of the continuations are killed, too.
    if (round % 2 == 1 && killed(continuation("1000"), ofContinuations)) ++numContinuationsKilled;
    ASSERT_NO_FATAL_FAILURE(expectAsInOneGo(expected));
  }
  std::printf("%d of %d runs killed, and %d continuations\n", numKilled, rounds, numContinuationsKilled);
  EXPECT_GT(numKilled, rounds / 2);
  EXPECT_GT(numContinuationsKilled, rounds / 8);
}

/// The calls that change files: a kill in place of any other equals one in place of the next of these.
constexpr std::array kChanges = {Call::kOpen,   Call::kWrite,      Call::kTruncate, Call::kRename,
                                 Call::kUnlink, Call::kMakeFolder, Call::kMode};

TEST_F(KilledRun, ContinuedLeavesTheBytesOfOneGoInPlaceOfWhicheverCallItWasKilled) {
  const Files expected = inOneGo(words("1000", "400"));
  const Words start = withCheckpoints(words("500", "400"));
  int numKilled = 0, numAgain = 0;
  for (const Call call : kChanges) {
    int status = -SIGKILL;
    for (int number = 1; status == -SIGKILL; ++number) {
      SCOPED_TRACE(testing::Message() << "call " << static_cast<int>(call) << ' ' << number);
      empty();
      set(*plan_, folder_, {call, kKill}, number);
      status = run(QUORVANE_BATCH, start).status;
      ASSERT_TRUE(status == -SIGKILL || status == 0) << status;
      set(*plan_, folder_, {Call::kAny, 0}, 0);
      if (status == -SIGKILL) ++numKilled;
      if (!hasCheckpoint()) {
        ++numAgain;
        ASSERT_EQ(run(QUORVANE_BATCH, start).status, 0);
      }
      ASSERT_NO_FATAL_FAILURE(expectAsInOneGo(expected));
    }
  }
  std::printf("%d runs killed, %d of them before their first checkpoint\n", numKilled, numAgain);
  EXPECT_GT(numKilled, numAgain + 40);
}

class KilledContinuation : public KilledRun {
 protected:
  /// Kills the continuation of a run in place of each call that changes a file, and continues again.
  void killInPlaceOfEveryChange() {
    const TemporaryFolder kept;
    ASSERT_TRUE(hasCheckpoint());
    fs::copy(folder_, kept / "run", fs::copy_options::recursive);
    int numKilled = 0;
    for (const Call call : kChanges) {
      int status = -SIGKILL;
      for (int number = 1; status == -SIGKILL; ++number) {
        SCOPED_TRACE(testing::Message() << "call " << static_cast<int>(call) << ' ' << number);
        empty();
        fs::copy(kept / "run", folder_, fs::copy_options::recursive);
        set(*plan_, folder_, {call, kKill}, number);
        status = run(QUORVANE_BATCH, continuation("1000")).status;
        ASSERT_TRUE(status == -SIGKILL || status == 0) << status;
        if (status == -SIGKILL) ++numKilled;
        set(*plan_, folder_, {Call::kAny, 0}, 0);
        ASSERT_NO_FATAL_FAILURE(expectAsInOneGo(expected_));
      }
    }
    std::printf("%d continuations killed\n", numKilled);
    EXPECT_GT(numKilled, 80);
  }

  const Files expected_ = inOneGo(words("1000", "400"));
  const Words start_ = withCheckpoints(words("500", "400"));
};

TEST_F(KilledContinuation, OfAFinishedRunIsContinuedInPlaceOfWhicheverCallItWasKilled) {
  ASSERT_EQ(run(QUORVANE_BATCH, start_).status, 0);
  killInPlaceOfEveryChange();
}

TEST_F(KilledContinuation, OfAKilledRunIsContinuedInPlaceOfWhicheverCallItWasKilled) {
  constexpr int behindTheFirstCheckpoint = 250;
  set(*plan_, folder_, {Call::kAny, kKill}, behindTheFirstCheckpoint);
  ASSERT_EQ(run(QUORVANE_BATCH, start_).status, -SIGKILL);
  set(*plan_, folder_, {Call::kAny, 0}, 0);
  killInPlaceOfEveryChange();
}

}  // namespace
}  // namespace quorvane
