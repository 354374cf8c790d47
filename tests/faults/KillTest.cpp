#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <csignal>

#include "DocumentSupport.h"
#include "Faults.h"
#include "KillMoments.h"
#include "Process.h"
#include "SharedPlan.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::IsEmpty;

/// Two runs with the same targets. Neither waits for the disk, since fsync matters only for a loss of power.
class SameTargets : public testing::Test {
 protected:
  SameTargets() {
    set(*plan_, folder_, {Call::kAny, 0}, 0);
    for (std::size_t k = 0; k < inputs_.size(); ++k) {
      put(inputs_[k], contentOf(kDocuments[k]));
      EXPECT_EQ(run(k).wait().status, 0);
      results_[k] = filesIn(folder_);
    }
    EXPECT_NE(results_[0], results_[1]);
  }

  Process run(std::size_t k) const {
    return {QUORVANE_BATCH,
            {inputs_[k], "--sweeps", "1", "--output", folder_ / "out.quorvane", "--populations",
             folder_ / "out.csv", "--picture", folder_ / "out.png"}};
  }

  void expectEachFileOfOneRun() const {
    const Files files = filesIn(folder_);
    EXPECT_EQ(files.size(), results_[0].size());
    for (const auto& [name, content] : files)
      EXPECT_TRUE(content == results_[0].at(name) || content == results_[1].at(name)) << name;
  }
  void expectTheNextRunToTidyUp() const {
    EXPECT_EQ(run(0).wait().status, 0);
    EXPECT_EQ(filesIn(folder_), results_[0]);
    EXPECT_THAT(partialFilesIn(folder_), IsEmpty());
  }

  static constexpr std::array kDocuments = {QUORVANE_EXAMPLES "/growth-from-a-seed.quorvane",
                                            QUORVANE_EXAMPLES "/eden-growth.quorvane"};
  const TemporaryFolder temporary_, elsewhere_;
  const fs::path folder_ = fs::canonical(temporary_.path());
  const std::array<std::string, 2> inputs_ = {elsewhere_ / "a", elsewhere_ / "b"};
  const SharedPlan plan_;
  std::array<Files, 2> results_;
};

TEST_F(SameTargets, AreOldOrNewWhenARunIsKilledAtAnyMoment) {
  constexpr int rounds = 200;
  KillMoments moments;
  int numKilled = 0, numInTheMiddle = 0;
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE(round);
    const auto before = partialFilesIn(folder_);
    Process program = run(static_cast<std::size_t>(round % 2));
    program.waitFor(moments.next());
    program.kill();
    const bool killed = program.wait().status == -SIGKILL;
    moments.add(killed);
    if (killed) ++numKilled;
    if (partialFilesIn(folder_) != before) ++numInTheMiddle;
    expectEachFileOfOneRun();
  }
  std::printf("%d of %d runs killed, %d of them while a file grew\n", numKilled, rounds, numInTheMiddle);
  EXPECT_GT(numKilled, rounds / 2);
  EXPECT_GT(numInTheMiddle, 0);
  expectTheNextRunToTidyUp();
}

TEST_F(SameTargets, AreOldOrNewWhenARunIsKilledInPlaceOfAnyCall) {
  int numKilled = 0;
  for (int status = -SIGKILL; status == -SIGKILL; ++numKilled) {
    SCOPED_TRACE(numKilled + 1);
    set(*plan_, folder_, {Call::kAny, kKill}, numKilled + 1);
    status = run(1).wait().status;
    EXPECT_TRUE(status == -SIGKILL || status == 0) << status;
    expectEachFileOfOneRun();
    set(*plan_, folder_, {Call::kAny, 0}, 0);
    expectTheNextRunToTidyUp();
  }
  std::printf("%d runs killed\n", numKilled - 1);
  EXPECT_GT(numKilled, 50);
}

TEST_F(SameTargets, AreEachThatOfOneRunWhenTwoRunsEndAtOnce) {
  constexpr int rounds = 100;
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE(round);
    Process first = run(0), second = run(1);
    EXPECT_EQ(first.wait().status, 0);
    EXPECT_EQ(second.wait().status, 0);
    EXPECT_EQ(first.errors() + second.errors(), "");
    expectEachFileOfOneRun();
    EXPECT_THAT(partialFilesIn(folder_), IsEmpty());
  }
}

}  // namespace
}  // namespace quorvane
