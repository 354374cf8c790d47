#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fstream>
#include <limits>
#include <thread>

#include "FileSizeLimit.h"
#include "RunnerTest.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using Clock = std::chrono::steady_clock;

/// The partial table of a run.
class Rows : public Runner {};

/// The complete lines of a table.
std::string wholeLines(const std::string& csv) { return csv.substr(0, csv.rfind('\n') + 1); }

void expectEachSweepUpTo(long last, const std::vector<std::vector<long>>& rows) {
  ASSERT_GT(static_cast<long>(rows.size()), last);
  for (std::size_t k = 0; k < rows.size(); ++k) {
    ASSERT_EQ(rows[k].size(), 3u) << "row " << k;
    ASSERT_EQ(rows[k][0], static_cast<long>(k));
    ASSERT_EQ(rows[k][1] + rows[k][2], 6);
  }
}

TEST_F(Rows, OlderThanTwoSecondsSurviveAKill) {
  put(populations_, "old");
  const fs::path film = folder_ / "film";
  // A frame is on the disk before the row of its sweep is written.
  BatchProcess process(
      {document_, "--sweeps", kEndlessFilm, "--populations", populations_, "--frames", film});
  const auto lastFrame = [&] {
    return static_cast<long>(std::distance(fs::directory_iterator(film), fs::directory_iterator())) - 2;
  };
  ASSERT_TRUE(waitUntil([&] { return fs::exists(film / "frame-000050.png"); }));
  const long last = lastFrame();
  const fs::path partial = partialFileOf(process.id());
  std::this_thread::sleep_for(std::chrono::seconds(2));
  // It may have stood still meanwhile.
  const long then = lastFrame();
  ASSERT_TRUE(waitUntil([&] { return lastFrame() > then + 1; }));
  process.signal(SIGKILL);
  EXPECT_EQ(process.wait().status, -SIGKILL);
  EXPECT_EQ(contentOf(populations_), "old");
  const std::string csv = wholeLines(contentOf(partial));
  EXPECT_THAT(csv, StartsWith("sweep,\"Empty space\",\"Particle\"\n0,3,3\n"));
  expectEachSweepUpTo(last, rowsOf(csv));
}

TEST_F(Rows, GrowBesideTheirTargetAndReplaceItAtTheEndOrAStop) {
  put(populations_, "old");
  for (const int signal : {SIGINT, SIGTERM}) {
    BatchProcess process({document_, "--sweeps", kForever, "--every", "100", "--populations", populations_});
    const fs::path partial = partialFileOf(process.id());
    ASSERT_TRUE(waitUntil([&] { return sizeOf(partial) > 10'000; }));
    process.signal(signal);
    EXPECT_EQ(process.wait().status, -signal);
    EXPECT_THAT(namesIn(folder_.path()), ElementsAre("in.quorvane", "out.csv"));
    EXPECT_EQ(contentOf(populations_).back(), '\n');
    const auto rows = rowsOf(contentOf(populations_));
    for (std::size_t k = 0; k + 1 < rows.size(); ++k) ASSERT_EQ(rows[k][0], static_cast<long>(100 * k));
  }
}

long residentKilobytes(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/status");
  for (std::string word; status >> word;)
    if (long kilobytes = 0; word == "VmRSS:" && status >> kilobytes) return kilobytes;
  return -1;
}

TEST_F(Rows, UseNoMoreMemoryInALongRunThanInAShortOne) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the address sanitizer keeps what was freed";
#endif
#ifdef __SANITIZE_THREAD__
  GTEST_SKIP() << "the thread sanitizer has memory of its own, and takes minutes for so many rows";
#endif
  BatchProcess process({document_, "--sweeps", kForever, "--populations", populations_});
  const fs::path partial = partialFileOf(process.id());
  constexpr std::uintmax_t megabyte = 1 << 20;
  ASSERT_TRUE(waitUntil([&] { return sizeOf(partial) > megabyte; }));
  const long before = residentKilobytes(process.id());
  ASSERT_TRUE(waitUntil([&] { return sizeOf(partial) > 8 * megabyte; }));
  const long after = residentKilobytes(process.id());
  ASSERT_GT(before, 0);
  EXPECT_LT(after - before, 2048) << "of " << before << " kB";
}

TEST_F(Rows, StayInTheirPartialFileIfASecondSignalEndsTheRun) {
  // A pipe without a reader, so the stopped run hangs before it has written its results.
  const fs::path fifo = folder_ / "fifo";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  BatchProcess process({document_, "--sweeps", kForever, "--populations", populations_, "--output", fifo});
  const fs::path partial = partialFileOf(process.id());
  ASSERT_TRUE(waitUntil([&] { return sizeOf(partial) > 100'000; }));
  process.signal(SIGINT);
  signalUntilItEnds(process, SIGTERM);
  EXPECT_EQ(process.wait().status, -SIGTERM);
  EXPECT_FALSE(fs::exists(populations_));
  const std::string csv = contentOf(partial);
  EXPECT_EQ(csv.back(), '\n');
  expectEachSweepUpTo(5000, rowsOf(csv));
}

TEST_F(Rows, OfARunThatFailsAreKeptAndReported) {
  put(populations_, "old");
  // More than the counts of one source in a coverage build, which the process writes at its end.
  const FileSizeLimit limit(500'000);
  std::signal(SIGXFSZ, SIG_DFL);  // as a shell starts it
  BatchProcess process({document_, "--sweeps", kForever, "--populations", populations_});
  const fs::path partial = partialFileOf(process.id());
  const Finished finished = process.wait();
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.err, "quorvane-batch: " + named(populations_) +
                              ": File too large (the rows so far are in " + named(partial) + ")\n");
  EXPECT_EQ(contentOf(populations_), "old");
  const std::string csv = contentOf(partial);
  EXPECT_EQ(csv.back(), '\n');
  EXPECT_GT(csv.size(), 100'000u);
  expectEachSweepUpTo(5000, rowsOf(csv));
}

TEST_F(Rows, AreWrittenIfAnotherResultFails) {
  expectFailure({document_, "--sweeps", "200", "--populations", populations_, "--output", "/dev/full"},
                "\"/dev/full\": No space left on device");
  EXPECT_THAT(namesIn(folder_.path()), ElementsAre("in.quorvane", "out.csv"));
  expectEachSweepUpTo(200, rowsOf(contentOf(populations_)));
}

TEST_F(Rows, OfTheStartAloneAreNotKept) {
  expectFailure({document_, "--sweeps", "5", "--populations", populations_, "--frames", document_},
                named(document_) + ": Not a directory");
  EXPECT_THAT(namesIn(folder_.path()), ElementsAre("in.quorvane"));
}

TEST_F(Rows, OfTwoRunsForOneTargetGrowSeparatelyAndTheLastOneWins) {
  const std::string longer = "3000", shorter = "1000";
  BatchProcess first({document_, "--sweeps", longer, "--populations", populations_});
  BatchProcess second({document_, "--sweeps", shorter, "--populations", populations_});
  EXPECT_EQ(first.wait().status, 0);
  EXPECT_EQ(second.wait().status, 0);
  EXPECT_THAT(namesIn(folder_.path()), ElementsAre("in.quorvane", "out.csv"));
  const auto rows = rowsOf(contentOf(populations_));
  EXPECT_THAT(rows.size(), AnyOf(3001u, 1001u));
  expectEachSweepUpTo(1000, rows);
}

TEST_F(Rows, GoToAPipeAtOnceAndOnlyOnce) {
  const fs::path fifo = folder_ / "fifo";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  BatchProcess process({document_, "--sweeps", kForever, "--every", "100", "--populations", fifo});
  const int reader = ::open(fifo.c_str(), O_RDONLY | O_CLOEXEC);
  ASSERT_GE(reader, 0);
  std::string csv;
  char block[4096];
  for (ssize_t size; (size = ::read(reader, block, sizeof block)) > 0;) {
    if (csv.empty()) process.signal(SIGINT);  // Long before the end, after the first rows.
    csv.append(block, static_cast<std::size_t>(size));
  }
  ::close(reader);
  EXPECT_EQ(process.wait().status, -SIGINT);
  const auto rows = rowsOf(csv);
  ASSERT_GE(rows.size(), 1u);
  for (std::size_t k = 0; k + 1 < rows.size(); ++k) ASSERT_EQ(rows[k][0], static_cast<long>(100 * k));
  EXPECT_THAT(namesIn(folder_.path()), ElementsAre("fifo", "in.quorvane"));
}

TEST_F(Rows, GoToADeviceItself) {
  EXPECT_EQ(runBatchProgram({document_, "--sweeps", "9", "--populations", "/dev/null"}).status, 0);
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  expectFailure({document_, "--sweeps", kForever, "--populations", "/dev/full"},
                "\"/dev/full\": No space left on device");
}

TEST_F(Rows, AcceptATargetWithTheLongestName) {
  const fs::path target = folder_ / std::string(255, 'n');
  EXPECT_EQ(runBatchProgram({document_, "--sweeps", "9", "--populations", target}).status, 0);
  EXPECT_EQ(rowsOf(contentOf(target)).size(), 10u);
  const fs::path longer = folder_ / std::string(256, 'n');
  expectFailure({document_, "--sweeps", kForever, "--populations", longer},
                named(longer) + ": File name too long");
}

}  // namespace
}  // namespace quorvane
