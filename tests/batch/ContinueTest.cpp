#include <sys/stat.h>

#include <csignal>
#include <fstream>

#include "CheckpointTest.h"
#include "FileSizeLimit.h"
#include "batch/RunSoFar.h"
#include "checkpoint/SealedBytes.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class Continue : public CheckpointTest {
 protected:
  /// Ends a run by a signal once a frame is there. The status.
  int stopAtFrame(const Words& words, const std::string& frame, int signal) const {
    BatchProcess process(words);
    EXPECT_TRUE(waitUntil([&] { return fs::exists(work_ / "film" / frame); }));
    process.signal(signal);
    const Finished finished = process.wait();
    if (signal != SIGKILL) {
      EXPECT_THAT(finished.err, HasSubstr("stopped after "));
    }
    return finished.status;
  }
  std::size_t framesMade() const { return namesIn(work_ / "film").size(); }
};

TEST_F(Continue, LeavesTheBytesOfOneGoFromAnyNumberOfSweepsToAnyOther) {
  for (const auto& steps :
       {Words{"0", "1000"}, Words{"0", "0", "1", "13", "14"}, Words{"500", "1000"},
        Words{"497", "498", "504", "511"}, Words{"1", "2", "3", "4", "5", "6", "7", "8"}}) {
    fs::remove_all(work_);
    fs::create_directory(work_);
    expectDone(withCheckpoints(runIn(work_, steps.front())));
    for (const std::string& sweeps : steps) {
      expectDone(continuation(sweeps));
      EXPECT_EQ(contentsOf(work_), inOneGo(sweeps)) << sweeps << " of " << testing::PrintToString(steps);
    }
  }
}

TEST_F(Continue, OfAFinishedRunLeavesItsBytes) {
  expectDone(withCheckpoints(runIn(work_, "100")));
  expectDone(continuation());
  expectDone(continuation());
  EXPECT_EQ(contentsOf(work_), inOneGo("100"));
}

TEST_F(Continue, AfterASignalLeavesTheBytesOfOneGo) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    fs::remove_all(work_);
    fs::create_directory(work_);
    EXPECT_EQ(stopAtFrame(withCheckpoints(runIn(work_, kEndlessFilm)), frameName(3), signal), -signal);
    EXPECT_EQ(stopAtFrame(continuation(), frameName(framesMade() + 10), signal), -signal);
    const std::string sweeps = std::to_string(kEvery * framesMade() + 100);
    expectDone(continuation(sweeps));
    EXPECT_EQ(contentsOf(work_), inOneGo(sweeps));
  }
}

TEST_F(Continue, OfAStoppedRunIsToldInItsLine) {
  BatchProcess process(withCheckpoints(runIn(work_, kEndlessFilm)));
  ASSERT_TRUE(waitUntil([&] { return fs::exists(work_ / "film/frame-000003.png"); }));
  process.signal(SIGTERM);
  EXPECT_THAT(process.wait().err, AllOf(StartsWith("quorvane-batch: stopped after "),
                                        EndsWith(" of " + kEndlessFilm + " sweeps, --continue " +
                                                 named(checkpoint_) + " goes on\n")));
}

TEST_F(Continue, KeepsTheOptionsOfTheStart) {
  const Words start = {
      "--seed", "4711", "--remake", "20x11", "--fill", "#0=0.25,#1=0.75", "--set", "rule Grow parameter=0.5"};
  Words whole = runIn(folder_ / "whole", "60"), part = withCheckpoints(runIn(work_, "30"));
  fs::create_directory(folder_ / "whole");
  whole.insert(whole.end(), start.begin(), start.end());
  part.insert(part.end(), start.begin(), start.end());
  expectDone(whole);
  expectDone(part);
  // The document is not needed any more.
  fs::remove(document_);
  expectDone(continuation("60"));
  EXPECT_EQ(contentsOf(work_), contentsOf(folder_ / "whole"));
}

TEST_F(Continue, WithoutPicturesLeavesTheSameBytes) {
  const std::string table = work_ / "p";
  expectDone({kExample, "--sweeps", "20", "--populations", populations_});
  expectDone({kExample, "--sweeps", "10", "--populations", table, "--checkpoint", checkpoint_});
  expectDone(continuation("20"));
  EXPECT_EQ(contentOf(table), contentOf(populations_));
}

TEST_F(Continue, FindsFilesFromAnotherFolderAndWrites) {
  const fs::path before = fs::current_path();
  fs::current_path(work_);
  expectDone({document_, "--sweeps", "5", "--populations", "p", "--frames", "film", "--scale", "1",
              "--checkpoint", "run.checkpoint"});
  fs::current_path(before);
  expectDone(continuation("9"));
  expectDone({document_, "--sweeps", "9", "--populations", populations_});
  EXPECT_EQ(contentOf(work_ / "p"), contentOf(populations_));
  EXPECT_TRUE(fs::exists(work_ / "film/frame-000009.png"));
}

TEST_F(Continue, GivesFramesTheNamesOfTheNewNumberOfSweeps) {
  Words words = {document_, "--sweeps", kForever, "--frames", work_ / "film", "--scale", "1"};
  EXPECT_EQ(stopAtFrame(withCheckpoints(words), "frame-0000000000000000020.png", SIGTERM), -SIGTERM);
  const auto numFrames = namesIn(work_ / "film").size();
  expectDone(continuation(std::to_string(numFrames + 5)));
  const auto names = namesIn(work_ / "film");
  EXPECT_EQ(names.size(), numFrames + 6);
  EXPECT_EQ(names.front(), "frame-000000.png");
  expectDone(
      {document_, "--sweeps", std::to_string(numFrames + 5), "--frames", folder_ / "film", "--scale", "1"});
  for (const std::string& name : names)
    EXPECT_EQ(contentOf(work_ / "film" / name), contentOf(folder_ / "film" / name)) << name;
}

TEST_F(Continue, MakesFewerSweepsThanAKilledRunHadMadeBehindItsCheckpoint) {
  // Only the checkpoint of the start is written.
  Words words = runIn(work_, kEndlessFilm);
  words.insert(words.end(), {"--checkpoint", checkpoint_});
  EXPECT_EQ(stopAtFrame(words, frameName(30), SIGKILL), -SIGKILL);
  expectDone(continuation("50"));
  auto left = contentsOf(work_);
  EXPECT_EQ(left, inOneGo("50"));
}

TEST_F(Continue, IsRefusedWithFewerSweepsThanAreDone) {
  expectDone(withCheckpoints(runIn(work_, "100")));
  expectRefusedLeaving(continuation("99"),
                       "--sweeps: 99 are fewer than the 100 that " + named(checkpoint_) + " has done", 2);
}

TEST_F(Continue, IsRefusedIfAnOutputWasChangedOrIsMissing) {
  expectDone(withCheckpoints(runIn(work_, "100")));
  for (const char* name : {"p", "m", "l"}) {
    const std::string content = contentOf(work_ / name);
    std::string changed = content;
    changed[130 % changed.size()] ^= 1;
    put(work_ / name, changed);
    const std::string line = named(work_ / name) + ": was changed since the checkpoint";
    expectRefusedLeaving(continuation("200"), line);
    put(work_ / name, content.substr(0, content.size() / 2));
    expectRefusedLeaving(continuation("200"), line);
    put(work_ / name, content + "x");
    expectRefusedLeaving(continuation("200"), line);
    fs::remove(work_ / name);
    expectRefusedLeaving(continuation("200"), named(work_ / name) + ": is missing since the checkpoint");
    put(work_ / name, content);
  }
  const fs::path frame = work_ / "film/frame-000003.png";
  const std::string content = contentOf(frame);
  put(frame, content + "x");
  expectRefusedLeaving(continuation("200"),
                       named(work_ / "film") + ": its frames were changed since the checkpoint");
  fs::remove(frame);
  expectRefusedLeaving(continuation("200"), named(frame) + ": is missing since the checkpoint");
  put(frame, content);
  put(work_ / "film/frame-000099.png", "of others");
  expectRefusedLeaving(continuation("200"),
                       named(work_ / "film") + ": holds a frame of another run (frame-000099.png)");
  fs::remove(work_ / "film/frame-000099.png");
  fs::rename(work_ / "film", work_ / "moved");
  expectRefusedLeaving(continuation("200"), named(work_ / "film") + ": is missing since the checkpoint");
  fs::rename(work_ / "moved", work_ / "film");
  expectDone(continuation("200"));
  EXPECT_EQ(contentsOf(work_), inOneGo("200"));
}

TEST_F(Continue, IsRefusedIfTheGrowingRowsWereChanged) {
  Words words = runIn(work_, kEndlessFilm);
  EXPECT_EQ(stopAtFrame(withCheckpoints(words), frameName(30), SIGKILL), -SIGKILL);
  fs::path partial;
  for (const std::string& name : namesIn(work_))
    if (name.starts_with(".p.")) partial = work_ / name;
  const std::string content = contentOf(partial);
  put(partial, "other" + content.substr(5));
  expectRefusedLeaving(continuation(), named(work_ / "p") + ": its rows in " + named(partial) +
                                           " were changed since the checkpoint");
  fs::remove(partial);
  expectRefusedLeaving(continuation(), named(work_ / "p") + ": is missing since the checkpoint");
}

TEST_F(Continue, IsRefusedInOneLineForWhatIsNoCheckpoint) {
  expectDone(withCheckpoints(runIn(work_, "10")));
  const std::string content = contentOf(checkpoint_);
  std::string newer = content, damaged = content;
  newer[8] = 9;
  damaged[content.size() / 2] ^= 4;
  const std::pair<std::string, std::string> cases[] = {
      {"", "is empty"},
      {joined(sampleLines()), "is no checkpoint"},
      {content.substr(0, 10), "is cut short"},
      {content.substr(0, content.size() - 1), "is cut short"},
      {content + "x", "is damaged (it is too long)"},
      {damaged, "is damaged (its checksum differs)"},
      {newer, "was written by a newer version of this program (format 9, this one reads 1)"},
      {seal("nonsense"), "is damaged (it ends early)"},
      {seal(std::string(contentOfSealed(content)) + "x"), "is damaged (it is too long)"}};
  for (const auto& [file, why] : cases) {
    put(checkpoint_, file);
    expectRefusedLeaving(continuation(), named(checkpoint_) + ": " + why);
  }
  fs::remove(checkpoint_);
  expectRefusedLeaving(continuation(), named(checkpoint_) + ": No such file or directory");
}

TEST_F(Continue, IsRefusedForACopyOfTheCheckpoint) {
  expectDone(withCheckpoints(runIn(work_, "10")));
  const fs::path copy = work_ / "copy";
  fs::copy_file(checkpoint_, copy);
  expectRefusedLeaving({"--continue", copy},
                       named(copy) + ": was moved or copied, the run wrote it as " + named(checkpoint_));
}

/// A checkpoint whose run is changed, sealed again.
template <typename Change>
void forge(const fs::path& checkpoint, const Change& change) {
  const auto model = freshModel();
  RandomSource::State random;
  const std::string file = contentOf(checkpoint);
  RunSoFar run = runSoFarIn(contentOfSealed(file), *model, random);
  change(run);
  put(checkpoint, seal(bytesOf(run, *model, random)));
}

TEST_F(Continue, TakesOnlyGrowingFilesOfItsOwnTargetHoweverACheckpointIsForged) {
  const fs::path other = work_ / "precious";
  for (const std::string& name : {std::string("precious"), std::string("../in.quorvane"), other.string(),
                                  std::string(".other.quorvane-12.partial"), std::string("")}) {
    fs::remove_all(work_);
    fs::create_directory(work_);
    put(other, "of others");
    put(work_ / ".other.quorvane-12.partial", "of others");
    expectDone(withCheckpoints(runIn(work_, "10")));
    fs::remove(work_ / "p");
    forge(checkpoint_, [&](RunSoFar& run) {
      run.populations->partial = name;
      run.populations->bytes = 9;
      run.populations->digest = DigestOf("of others").value();
    });
    expectRefusedLeaving(continuation("20"), named(work_ / "p") + ": is missing since the checkpoint");
  }
}

TEST_F(Continue, IsRefusedForACheckpointThatContradictsItself) {
  using Change = void (*)(RunSoFar&);
  const Change changes[] = {[](RunSoFar& run) { run.records = 7; },
                            [](RunSoFar& run) { run.populations.reset(); },
                            [](RunSoFar& run) { run.options.checkpointEvery = 0; },
                            [](RunSoFar& run) { run.options.observables.clear(); },
                            [](RunSoFar& run) { run.options.populations = "relative"; },
                            [](RunSoFar& run) { run.options.measure = run.options.populations; },
                            [](RunSoFar& run) { run.measurements.pop_back(); }};
  expectDone(withCheckpoints(runIn(work_, "10")));
  const std::string good = contentOf(checkpoint_);
  for (const Change change : changes) {
    put(checkpoint_, good);
    forge(checkpoint_, change);
    const auto before = contentsOf(work_);
    const Finished finished = runBatchProgram(continuation("20"));
    EXPECT_NE(finished.status, 0);
    EXPECT_EQ(std::count(finished.err.begin(), finished.err.end(), '\n'), 1) << finished.err;
    EXPECT_EQ(contentsOf(work_), before);
  }
  put(checkpoint_, good);
  expectDone(continuation("20"));
}

TEST_F(Continue, GivesBackWhatIsCarried) {
  expectDone(withCheckpoints(runIn(work_, "10")));
  forge(checkpoint_, [](RunSoFar& run) { run.carried = "a note"; });
  expectDone(continuation("20"));
  std::string carried;
  forge(checkpoint_, [&](RunSoFar& run) { carried = run.carried; });
  EXPECT_EQ(carried, "a note");
}

}  // namespace
}  // namespace quorvane
