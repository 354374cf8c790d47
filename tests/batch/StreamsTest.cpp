#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <csignal>

#include "RunnerTest.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::IsEmpty;
using testing::StartsWith;

class Streams : public Runner {};

TEST_F(Streams, CarryTheDocumentInAndOut) {
  const Finished finished = runBatchProgram({"-", "--sweeps", "0", "--output", "-"}, joined(sampleLines()));
  EXPECT_EQ(finished.status, 0);
  EXPECT_EQ(finished.out, joined(sampleLines()));
  EXPECT_THAT(finished.err, IsEmpty());
}

TEST_F(Streams, CarryTheSameBytesAsFiles) {
  const std::string document = contentOf(kExample);
  for (const auto& [option, file] :
       {std::pair("--output", output_), {"--populations", populations_}, {"--picture", picture_}}) {
    ASSERT_EQ(runBatchProgram({kExample, "--sweeps", "6", option, file}).status, 0);
    const Finished finished = runBatchProgram({"-", "--sweeps", "6", option, "-"}, document);
    EXPECT_EQ(finished.status, 0);
    EXPECT_EQ(finished.out, contentOf(file)) << option;
    EXPECT_THAT(finished.err, IsEmpty());
  }
}

TEST_F(Streams, MayBeMixedWithFiles) {
  const Finished finished = runBatchProgram(
      {document_, "--sweeps", "3", "--populations", "-", "--output", output_, "--picture", picture_});
  EXPECT_EQ(finished.status, 0);
  EXPECT_EQ(rowsOf(finished.out).size(), 4u);
  EXPECT_TRUE(fs::exists(output_) && fs::exists(picture_));
}

TEST_F(Streams, ShowRowsDuringTheRun) {
  int ends[2];
  ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
  BatchProcess process(
      // So few rows that a late reader, too, finds less than a pipe takes.
      {document_, "--sweeps", kForever, "--every", "5000", "--populations", "-"}, "", ends[1]);
  ::close(ends[1]);
  std::string rows;
  char block[65536];
  while (rows.find("\n15000,") == std::string::npos) {
    const ssize_t size = ::read(ends[0], block, sizeof block);
    ASSERT_GT(size, 0);
    rows.append(block, static_cast<std::size_t>(size));
    EXPECT_EQ(rows.back(), '\n');
  }
  EXPECT_THAT(rows, StartsWith("sweep,\"Empty space\",\"Particle\"\n0,3,3\n5000,"));
  // The reader closes the pipe.
  ::close(ends[0]);
  const Finished finished = process.wait();
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.err, "quorvane-batch: standard output: Broken pipe\n");
}

TEST_F(Streams, WithAnInvalidDocumentAreReportedWithTheLine) {
  const auto errorOf = [](const std::string& input) {
    const Finished finished = runBatchProgram({"-", "--sweeps", "1", "--output", "-"}, input);
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.out, IsEmpty());
    return finished.err;
  };
  EXPECT_EQ(errorOf("2\n3 \xff"),
            "quorvane-batch: standard input: line 2, column 3: a character that is not ASCII\n");
  EXPECT_THAT(errorOf(""), StartsWith("quorvane-batch: standard input: line 1: "));
  EXPECT_EQ(errorOf(joined(sampleWith(kFirstSite, "7"))),
            "quorvane-batch: standard input: line 4: pixel type of site (0, 0) must be 0 to 1, not \"7\"\n");
}

TEST_F(Streams, StayEmptyIfAFileFails) {
  const std::string missing = (folder_ / "missing/out").string();
  expectFailure({document_, "--sweeps", "1", "--output", "-", "--picture", missing},
                named(missing) + ": No such file or directory");
}

TEST_F(Streams, ThatAreFullFailTheRun) {
  const int full = ::open("/dev/full", O_WRONLY);
  BatchProcess process({document_, "--sweeps", "1", "--output", "-"}, "", full);
  ::close(full);
  const Finished finished = process.wait();
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.err, "quorvane-batch: standard output: No space left on device\n");
}

TEST_F(Streams, ThatDoNotBlockAreWaitedFor) {
  int ends[2];
  ASSERT_EQ(::pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
  const std::vector<std::string> run = {document_, "--sweeps", "20000", "--populations", "-"};
  BatchProcess process(run, "", ends[1]);
  pollfd writer = {ends[1], POLLOUT, 0};
  ASSERT_TRUE(waitUntil([&] { return ::poll(&writer, 1, 0) == 0; }));
  ::close(ends[1]);
  std::string rows;
  char block[4096];
  pollfd reader = {ends[0], POLLIN, 0};
  for (ssize_t size; ::poll(&reader, 1, -1) > 0 && (size = ::read(ends[0], block, sizeof block)) > 0;)
    rows.append(block, static_cast<std::size_t>(size));
  ::close(ends[0]);
  EXPECT_EQ(process.wait().status, 0);
  EXPECT_EQ(rows, runBatchProgram(run).out);
}

TEST_F(Streams, ThatAreClosedAtTheStartAreReplacedByDevNull) {
  const std::string pidFile = (folder_ / "pid").string();
  const std::string command = "{ ulimit -t 60; " QUORVANE_BATCH " " + document_ +
                              " --sweeps 9000000000000000000 --populations " + populations_ +
                              " <&- >&- 2>&- & } ; echo $! > " + pidFile;
  ASSERT_EQ(std::system(command.c_str()), 0);
  const pid_t process = std::stoi(contentOf(pidFile));
  const fs::path partial = partialFileOf(process);
  EXPECT_TRUE(waitUntil([&] { return sizeOf(partial) > 1000; }));
  for (const char* file : {"0", "1", "2"})
    EXPECT_EQ(fs::read_symlink("/proc/" + std::to_string(process) + "/fd/" + file), "/dev/null");
  ::kill(process, SIGKILL);
}

TEST_F(Streams, ThatAreClosedFailWithTheirReason) {
  const auto run = [&](const std::string& words) {
    return std::system((std::string(QUORVANE_BATCH) + " " + words).c_str());
  };
  // The message must not be written into the document, which could get the descriptor of standard error.
  EXPECT_NE(run(document_ + " --sweeps 1 --output " + output_ + " --picture /dev/full 2>&-"), 0);
  const std::string document = contentOf(output_);
  EXPECT_EQ(runBatchProgram({document_, "--sweeps", "1", "--output", "-"}).out, document);
  const std::string err = (folder_ / "err").string();
  EXPECT_NE(run(document_ + " --sweeps 1 --output - >&- 2> " + err), 0);
  EXPECT_EQ(contentOf(err), "quorvane-batch: standard output: Bad file descriptor\n");
  EXPECT_NE(run("- --sweeps 1 --output " + output_ + " <&- 2> " + err), 0);
  EXPECT_EQ(contentOf(err), "quorvane-batch: standard input: Bad file descriptor\n");
  EXPECT_EQ(contentOf(output_), document);
}

TEST_F(Streams, OnATerminalAreNotMixedWithProgress) {
  if (const auto why = whyNoTerminal(); !why.empty()) GTEST_SKIP() << why;
  const std::vector<std::string> run = {document_, "--sweeps", "2", "--populations", "-"};
  EXPECT_THAT(runBatchProgramOnTerminal(run).out, testing::Not(testing::HasSubstr("sweep 0 of")));
}

TEST_F(Streams, AreNotAFileNamedHyphenInTheFolder) {
  const auto before = fs::current_path();
  fs::current_path(folder_.path());
  EXPECT_EQ(runBatchProgram({document_, "--sweeps", "0", "--output", "./-"}).status, 0);
  fs::current_path(before);
  EXPECT_EQ(contentOf(folder_ / "-"), joined(sampleLines()));
}

}  // namespace
}  // namespace quorvane
