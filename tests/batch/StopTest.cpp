#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "RunnerTest.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

/// A pipe without a reader.
class FullPipe {
 public:
  FullPipe() {
    if (::pipe2(ends_, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  }
  ~FullPipe() {
    ::close(ends_[0]);
    ::close(ends_[1]);
  }
  FullPipe(const FullPipe&) = delete;
  FullPipe& operator=(const FullPipe&) = delete;

  int end() const { return ends_[1]; }
  bool isFull() const {
    pollfd writer = {ends_[1], POLLOUT, 0};
    return ::poll(&writer, 1, 0) == 0;
  }

 private:
  int ends_[2] = {-1, -1};
};

/// True once a program has a function of its own for a signal.
bool handles(pid_t process, int signal) {
  const std::string status = contentOf("/proc/" + std::to_string(process) + "/status");
  const std::string key = "\nSigCgt:\t";
  const auto caught = status.find(key);
  if (caught == std::string::npos) return false;
  const unsigned long long mask = std::stoull(status.substr(caught + key.size()), nullptr, 16);
  return (mask >> (signal - 1) & 1) != 0;
}

/// True while a single-threaded process is blocked, which a run is only when it waits for a reader.
bool isWaiting(pid_t process) {
  const std::string status = contentOf("/proc/" + std::to_string(process) + "/stat");
  // The name in parentheses may contain anything.
  const auto name = status.rfind(')');
  return name != std::string::npos && status.compare(name, 3, ") S") == 0;
}

class Stop : public Runner {
 protected:
  std::vector<std::string> endlessRun() const {
    return {kExample, "--sweeps", kEndlessFilm, "--every", "20", "--frames", film_};
  }
  bool waitForFrame(std::size_t number) const {
    return waitUntil([&] { return fs::exists(film_ / frameName(number)); });
  }
  /// The number of sweeps that a stopped run reports, -1 if it does not report it in one line.
  static long sweepsSaid(const std::string& err) {
    long sweeps = -1;
    int end = 0;
    const std::string format = "quorvane-batch: stopped after %ld of " + kEndlessFilm + " sweeps\n%n";
    return std::sscanf(err.c_str(), format.c_str(), &sweeps, &end) == 1 && end == static_cast<int>(err.size())
               ? sweeps
               : -1;
  }

  const fs::path film_ = folder_ / "film";
};

TEST_F(Stop, BySignalLeavesTheStateAfterTheLastWholeSweep) {
  for (const int signal : {SIGINT, SIGTERM}) {
    fs::remove_all(film_);
    auto arguments = endlessRun();
    for (const auto& more :
         {"--output", output_.c_str(), "--populations", populations_.c_str(), "--picture", picture_.c_str()})
      arguments.emplace_back(more);
    BatchProcess process(arguments);
    ASSERT_TRUE(waitForFrame(3));
    process.signal(signal);
    const Finished finished = process.wait();
    EXPECT_EQ(finished.status, -signal);  // Ended by the signal, so that a loop in a script ends too.
    EXPECT_THAT(finished.out, IsEmpty());
    const long sweeps = sweepsSaid(finished.err);
    ASSERT_GE(sweeps, 60) << finished.err;

    const std::string again = (folder_ / "again").string(), picture = (folder_ / "again.png").string();
    ASSERT_EQ(runBatchProgram(
                  {kExample, "--sweeps", std::to_string(sweeps), "--output", again, "--picture", picture})
                  .status,
              0);
    EXPECT_EQ(contentOf(output_), contentOf(again));
    EXPECT_EQ(contentOf(picture_), contentOf(picture));
    const auto rows = rowsOf(contentOf(populations_));
    EXPECT_EQ(rows.back().front(), sweeps);
    const auto frames = namesIn(film_);
    EXPECT_EQ(frames.size(), rows.size());
    EXPECT_EQ(contentOf(film_ / frames.back()), contentOf(picture));
  }
}

TEST_F(Stop, BySignalsThatComeTogetherWritesTheResults) {
  // Like timeout(1), which signals the process and then its group.
  constexpr int rounds = 20;
  for (int round = 0; round < rounds; ++round) {
    fs::remove(output_);
    fs::remove_all(film_);
    auto arguments = endlessRun();
    arguments.insert(arguments.end(), {"--output", output_});
    BatchProcess process(arguments);
    ASSERT_TRUE(waitForFrame(0));
    process.signalTogether({SIGTERM, SIGTERM, SIGINT});
    EXPECT_THAT(process.wait().status, AnyOf(-SIGTERM, -SIGINT));
    EXPECT_TRUE(fs::exists(output_));
  }
}

TEST_F(Stop, ByAClosedTerminalEqualsOneBySighup) {
  BatchProcess process(
      {kExample, "--sweeps", kEndlessFilm, "--every", "20", "--frames", film_, "--output", output_});
  ASSERT_TRUE(waitForFrame(1));
  process.signal(SIGHUP);
  const Finished finished = process.wait();
  EXPECT_EQ(finished.status, -SIGHUP);
  EXPECT_GE(sweepsSaid(finished.err), 20);
  EXPECT_TRUE(fs::exists(output_));
}

TEST_F(Stop, IsNotCausedByASignalThatWasIgnoredAtTheStart) {
  // As with nohup, and for a background program of a shell.
  for (const int signal : {SIGHUP, SIGINT}) std::signal(signal, SIG_IGN);
  BatchProcess process({kExample, "--sweeps", kEndlessFilm, "--every", "20", "--frames", film_});
  for (const int signal : {SIGHUP, SIGINT}) std::signal(signal, SIG_DFL);
  ASSERT_TRUE(waitForFrame(1));
  for (const int signal : {SIGHUP, SIGINT}) process.signal(signal);
  ASSERT_TRUE(waitForFrame(namesIn(film_).size() + 2));
  process.signal(SIGTERM);
  EXPECT_EQ(process.wait().status, -SIGTERM);
}

TEST_F(Stop, OnceEndsAWaitForAReaderAndTheOtherResultsAreWritten) {
  const fs::path fifo = folder_ / "fifo";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  BatchProcess process({document_, "--sweeps", "3", "--output", fifo, "--picture", folder_ / "out.png"});
  ASSERT_TRUE(waitUntil([&] { return handles(process.id(), SIGTERM) && isWaiting(process.id()); }));
  process.signal(SIGTERM);
  const Finished finished = process.wait();
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.err, "quorvane-batch: " + named(fifo) + ": nobody reads from it\n");
  EXPECT_TRUE(fs::exists(folder_ / "out.png"));
}

TEST_F(Stop, OnceEndsAWaitForAReaderThatDoesNotRead) {
  const FullPipe pipe;
  BatchProcess process(
      {document_, "--sweeps", "9000000000000000000", "--populations", "-", "--output", output_}, "",
      pipe.end());
  ASSERT_TRUE(waitUntil([&] { return pipe.isFull() && isWaiting(process.id()); }));
  process.signal(SIGTERM);
  const Finished finished = process.wait();
  EXPECT_EQ(finished.status, 1);
  EXPECT_THAT(finished.err, StartsWith("quorvane-batch: standard output: nobody reads from it\n"));
  EXPECT_TRUE(fs::exists(output_));
}

TEST_F(Stop, ASecondTimeEndsAtOnceAndWritesNothing) {
  const FullPipe pipe;
  BatchProcess process(
      {document_, "--sweeps", "9000000000000000000", "--populations", "-", "--output", output_}, "",
      pipe.end());
  // Further writes block.
  ASSERT_TRUE(waitUntil([&] { return pipe.isFull() && isWaiting(process.id()); }));
  process.signal(SIGINT);
  signalUntilItEnds(process, SIGTERM);
  const Finished finished = process.wait();
  EXPECT_EQ(finished.status, -SIGTERM);
  EXPECT_THAT(finished.err, IsEmpty());
  EXPECT_THAT(namesIn(folder_.path()), ElementsAre("in.quorvane"));
}

TEST_F(Stop, AtAnyMomentLeavesNoTemporaryAndNoIncompleteFile) {
  constexpr int rounds = 30;
  for (int round = 0; round < rounds; ++round) {
    fs::remove_all(film_);
    // A frame per sweep, so that a file is being written most of the time.
    BatchProcess process({document_, "--sweeps", kEndlessFilm, "--frames", film_, "--scale", "32"});
    ASSERT_TRUE(waitForFrame(round % 10));
    process.signalTogether({SIGINT, SIGTERM});
    EXPECT_THAT(process.wait().status, AnyOf(-SIGINT, -SIGTERM));
    for (const std::string& name : namesIn(film_)) {
      ASSERT_THAT(name, StartsWith("frame-"));
      EXPECT_EQ(readPng(film_ / name).width, 2 * 32);
    }
  }
}

}  // namespace
}  // namespace quorvane
