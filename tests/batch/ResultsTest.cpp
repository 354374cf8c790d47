#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "RunnerTest.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string kFull = ": No space left on device";

/// One result that fails, and the others.
class Results : public Runner {};

TEST_F(Results, AreAllWrittenIfThePopulationsFail) {
  expectFailure(
      {document_, "--sweeps", "3", "--populations", "/dev/full", "--output", output_, "--picture", picture_},
      named("/dev/full") + kFull);
  ASSERT_EQ(runBatchProgram({document_, "--sweeps", "3", "--output", folder_ / "again"}).status, 0);
  EXPECT_EQ(contentOf(output_), contentOf(folder_ / "again"));
  EXPECT_EQ(readPng(picture_).width, 8);
}

TEST_F(Results, AreAllWrittenIfTheOutputOrThePictureFails) {
  expectFailure({document_, "--sweeps", "3", "--output", "/dev/full", "--picture", picture_},
                named("/dev/full") + kFull);
  EXPECT_TRUE(fs::exists(picture_));
  expectFailure({document_, "--sweeps", "3", "--picture", "/dev/full", "--output", output_},
                named("/dev/full") + kFull);
  EXPECT_TRUE(fs::exists(output_));
}

TEST_F(Results, AreAllWrittenIfAFrameFails) {
  const fs::path film = folder_ / "film";
  // More frames than are made before the run is held.
  BatchProcess process(
      {document_, "--sweeps", "20000", "--frames", film, "--output", output_, "--populations", populations_});
  ASSERT_TRUE(waitUntil([&] { return fs::exists(film / "frame-000001.png"); }));
  process.hold();
  const std::size_t number = namesIn(film).size() + 50;
  const fs::path inTheWay = film / frameName(number);
  fs::create_directory(inTheWay);
  process.signal(SIGCONT);
  const Finished finished = process.wait();
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.err, "quorvane-batch: " + named(inTheWay) + ": Is a directory\n");
  EXPECT_TRUE(fs::exists(film / frameName(number - 1)));
  EXPECT_FALSE(fs::exists(film / frameName(number + 1)));
  EXPECT_TRUE(fs::exists(output_));
  EXPECT_EQ(rowsOf(contentOf(populations_)).size(), 20001u);
}

TEST_F(Results, ThatFailAreEachReportedInALine) {
  int ends[2];
  ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
  ::close(ends[0]);
  BatchProcess process(
      {document_, "--sweeps", "3", "--populations", "-", "--output", "/dev/full", "--picture", picture_}, "",
      ends[1]);
  ::close(ends[1]);
  const Finished finished = process.wait();
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.err, "quorvane-batch: standard output: Broken pipe\nquorvane-batch: " +
                              named("/dev/full") + kFull + "\n");
  EXPECT_TRUE(fs::exists(picture_));
}

TEST_F(Results, EndTheRunIfAllHaveFailed) {
  expectFailure({document_, "--sweeps", "9000000000000000000", "--populations", "/dev/full"},
                named("/dev/full") + kFull);
}

TEST_F(Results, OfKilledRunsStayUntilASuccessfulRunToTheSameTarget) {
  const auto endless = [&] {
    BatchProcess process({document_, "--sweeps", "9000000000000000000", "--populations", populations_});
    const fs::path partial = partialFileOf(process.id());
    EXPECT_TRUE(waitUntil([&] { return sizeOf(partial) > 10'000; }));
    process.signal(SIGKILL);
    process.wait();
    return partial;
  };
  const fs::path first = endless(), second = endless();
  EXPECT_TRUE(fs::exists(first) && fs::exists(second));
  EXPECT_EQ(runBatchProgram({document_, "--sweeps", "3", "--output", output_}).status, 0);
  EXPECT_TRUE(fs::exists(first) && fs::exists(second));
  EXPECT_EQ(runBatchProgram({document_, "--sweeps", "3", "--populations", populations_}).status, 0);
  EXPECT_THAT(namesIn(folder_.path()), ElementsAre("in.quorvane", "out.csv", "out.quorvane"));
}

TEST_F(Results, OfTwoRunsDoNotShareAFolderOfFrames) {
  const fs::path film = folder_ / "film";
  BatchProcess first({document_, "--sweeps", kEndlessFilm, "--frames", film});
  ASSERT_TRUE(waitUntil([&] { return fs::exists(film / "frame-000000.png"); }));
  expectFailure({document_, "--sweeps", "3", "--frames", film},
                named(film) + ": gets frames of another run at this moment");
}

TEST_F(Results, ThatAreWrittenInPlaceAreReported) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser may become another user";
  constexpr uid_t person = 12345, other = 23456;
  put(output_, "old");
  ASSERT_EQ(::chown(output_.c_str(), person, static_cast<gid_t>(other)), 0);
  ASSERT_EQ(::chmod(output_.c_str(), 0666), 0);
  ASSERT_EQ(::chmod(folder_.path().c_str(), 0777), 0);
  const std::string err = (folder_ / "err").string();
  const std::string command = "setpriv --reuid 23456 --regid 23456 --clear-groups " +
                              std::string(QUORVANE_BATCH) + " " + document_ + " --sweeps 0 --output " +
                              output_ + " 2> " + err;
  if (std::system("setpriv --reuid 23456 --regid 23456 --clear-groups test -x " QUORVANE_BATCH) != 0)
    GTEST_SKIP() << "another user cannot run the program here";
  EXPECT_EQ(std::system(command.c_str()), 0);
  EXPECT_EQ(contentOf(err),
            "quorvane-batch: " + named(output_) + ": was written in place, to keep its owner and group\n");
  EXPECT_EQ(contentOf(output_), joined(sampleLines()));
  struct stat status = {};
  ASSERT_EQ(::stat(output_.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, person);
}

}  // namespace
}  // namespace quorvane
