#include <sys/stat.h>

#include <csignal>
#include <limits>

#include "CheckpointTest.h"
#include "FileSizeLimit.h"
#include "batch/RunSoFar.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class Checkpoint : public CheckpointTest {
 protected:
  void expectUsage(const Words& words, const std::string& line) const {
    expectRefusedLeaving(words, line + " (--help tells more)", 2);
  }
  Words run(const Words& more) const {
    Words words = {document_, "--sweeps", "10"};
    words.insert(words.end(), more.begin(), more.end());
    return words;
  }
};

TEST_F(Checkpoint, NeedsFilesForEveryResult) {
  expectUsage(run({"--populations", "-", "--checkpoint", checkpoint_}),
              "--checkpoint: needs a file for --populations, not standard output (-)");
  expectUsage(run({"--output", "-", "--checkpoint", checkpoint_}),
              "--checkpoint: needs a file for --output, not standard output (-)");
  expectUsage(run({"--populations", populations_, "--checkpoint", "-"}),
              "--checkpoint: needs a file, not standard output (-)");
  const fs::path fifo = folder_ / "fifo";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  for (const fs::path& device : {fifo, fs::path("/dev/null")}) {
    const std::string line = named(device) + ": is no regular file, and --checkpoint needs one";
    expectRefusedLeaving(run({"--populations", device, "--checkpoint", checkpoint_}), line);
    expectRefusedLeaving(run({"--populations", populations_, "--checkpoint", device}), line);
  }
}

TEST_F(Checkpoint, IsNoOtherFileOfTheRun) {
  expectUsage(run({"--populations", checkpoint_, "--checkpoint", checkpoint_}),
              named(checkpoint_) + ": is asked for twice");
  expectUsage(run({"--output", output_, "--checkpoint", document_}),
              named(document_) + ": is the document itself, which only --output may replace");
  const std::string frame = work_ / "frame-000001.png";
  expectUsage(run({"--frames", work_, "--checkpoint", frame}),
              named(frame) + ": is asked for twice, it would be one of the frames");
}

TEST_F(Checkpoint, TakesSecondsAboveZeroAndNeedsAFile) {
  for (const std::string seconds : {"0", "-1", "nan", "inf", "1e10", "5x", "1,5"})
    expectUsage(
        run({"--output", output_, "--checkpoint", checkpoint_, "--checkpoint-every", seconds}),
        "--checkpoint-every: \"" + seconds + "\" is not a number of seconds above 0, such as 300 or 0.5");
  expectUsage(run({"--output", output_, "--checkpoint-every", "5"}),
              "--checkpoint-every: needs --checkpoint");
  expectDone(run({"--output", output_, "--checkpoint", checkpoint_, "--checkpoint-every", "0.5"}));
}

TEST_F(Checkpoint, IsContinuedWithoutOtherOptions) {
  expectDone(run({"--output", output_, "--checkpoint", checkpoint_}));
  for (const Words& more : {Words{"--every", "2"}, {"--output", "x"}, {"--trace"}, {"--checkpoint", "x"}})
    for (const bool before : {true, false}) {
      Words words = continuation();
      words.insert(before ? words.begin() : words.end(), more.begin(), more.end());
      expectUsage(words, "--continue: goes without " + more[0] +
                             ", since the checkpoint has all options but --sweeps");
    }
  Words withDocument = continuation();
  withDocument.push_back(document_);
  expectUsage(withDocument,
              "--continue: goes without DOCUMENT, since the checkpoint has all options but --sweeps");
  expectUsage({"--continue"}, "--continue: needs a name");
  expectUsage({"--sweeps", "10", "--output", output_}, "DOCUMENT is required");
  expectDone({"--continue=" + checkpoint_, "--sweeps=12"});
}

TEST_F(Checkpoint, IsInUseWhileARunHasIt) {
  BatchProcess process(withCheckpoints(runIn(work_, kEndlessFilm)));
  ASSERT_TRUE(waitUntil([&] { return fs::exists(checkpoint_); }));
  const std::string line =
      "quorvane-batch: " + named(checkpoint_) + ": is in use by another run at this moment\n";
  constexpr int rounds = 20;
  for (int round = 0; round < rounds; ++round) {
    EXPECT_EQ(runBatchProgram(continuation()).err, line);
    EXPECT_EQ(runBatchProgram(run({"--output", output_, "--checkpoint", checkpoint_})).err, line);
  }
  EXPECT_FALSE(fs::exists(output_));
  process.signal(SIGTERM);
  EXPECT_EQ(process.wait().status, -SIGTERM);
}

TEST_F(Checkpoint, OfAnEarlierRunIsReplacedByANewOne) {
  expectDone(run({"--output", output_, "--checkpoint", checkpoint_}));
  expectDone(run({"--populations", populations_, "--checkpoint", checkpoint_}));
  const std::string table = contentOf(populations_), document = contentOf(output_);
  expectDone(continuation("20"));
  EXPECT_NE(contentOf(populations_), table);
  EXPECT_EQ(contentOf(output_), document);
}

TEST_F(Checkpoint, ThatCannotBeWrittenIsToldOnceAndTheRunGoesOn) {
  const FileSizeLimit limit(600);
  const Finished finished =
      runBatchProgram({document_, "--sweeps", "20000", "--every", "1000", "--populations", populations_,
                       "--checkpoint", checkpoint_, "--checkpoint-every", "0.001"});
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.err, "quorvane-batch: " + named(checkpoint_) +
                              ": File too large (the run goes on without this checkpoint)\n");
  EXPECT_EQ(rowsOf(contentOf(populations_)).size(), 21u);
  EXPECT_FALSE(fs::exists(checkpoint_));
}

TEST_F(Checkpoint, BeforeAResultThatFailsStaysAndGivesAllResultsLater) {
  const Words words = {document_, "--sweeps",     "20000",     "--populations",      populations_, "--output",
                       output_,   "--checkpoint", checkpoint_, "--checkpoint-every", "0.001"};
  {
    const FileSizeLimit limit(50'000);
    const Finished finished = runBatchProgram(words);
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.err, HasSubstr(named(populations_) + ": File too large"));
    EXPECT_EQ(std::count(finished.err.begin(), finished.err.end(), '\n'), 1) << finished.err;
    EXPECT_TRUE(fs::exists(output_));
  }
  expectDone(continuation());
  const fs::path whole = folder_ / "whole";
  expectDone({document_, "--sweeps", "20000", "--populations", whole});
  EXPECT_EQ(contentOf(populations_), contentOf(whole));
}

TEST_F(Checkpoint, CountsSweepsUpToTheLargestNumber) {
  // The source of the numbers is what a forged checkpoint says.
  const auto model = freshModel();
  ASSERT_EQ(readDocument(*model, joined(sampleLines())).status, OpenStatus::kOpened);
  RunSoFar run;
  constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
  run.options.sweeps = run.sweepsDone = most;
  run.options.document = "/d";
  run.options.populations = "/p";
  run.options.checkpoint = "/c";
  run.populations.emplace();
  run.records = static_cast<std::uint64_t>(most) + 1;
  RandomSource source;
  RandomSource::State random;
  const auto other = freshModel();
  const RunSoFar read = runSoFarIn(bytesOf(run, *model, *source.state()), *other, random);
  EXPECT_EQ(read.sweepsDone, most);
  EXPECT_EQ(read.records, run.records);
  expectDone({document_, "--sweeps", "3", "--every", "9223372036854775807", "--populations", populations_,
              "--checkpoint", checkpoint_});
  expectDone(continuation("4"));
  EXPECT_EQ(rowsOf(contentOf(populations_)).size(), 2u);
}

}  // namespace
}  // namespace quorvane
