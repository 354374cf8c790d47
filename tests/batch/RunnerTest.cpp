#include "RunnerTest.h"

#include <numeric>

#include "batch/Results.h"
#include "batch/RunBatch.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(Runner, DoesNotRunWithoutARequestedResult) {
  const Finished finished = runBatchProgram({document_, "--sweeps", kForever});
  EXPECT_EQ(finished.status, 2);
  EXPECT_THAT(finished.out, IsEmpty());
  EXPECT_THAT(finished.err, HasSubstr("quorvane-batch: no result is asked for: "));
  EXPECT_THAT(namesIn(folder_.path()), ElementsAre("in.quorvane"));
}

TEST_F(Runner, WritesEveryResult) {
  for (const Result& result : allResults()) {
    const std::string target = (folder_ / ("result" + std::string(result.option))).string();
    std::vector<std::string> arguments = {document_, "--sweeps", "1", result.option, target};
    if (result.target == &BatchOptions::measure)
      arguments.insert(arguments.end(), {"--observables", "counts"});
    if (result.written == Result::kAfterAllOthers) arguments.insert(arguments.end(), {"--output", output_});
    EXPECT_EQ(runBatchProgram(arguments).status, 0);
    EXPECT_FALSE(fs::is_empty(target)) << result.option;
  }
}

TEST(RunBatch, UpdatesTracesOnlyForPictures) {
  BatchOptions options;
  options.output = "out.quorvane";
  options.populations = "out.csv";
  EXPECT_EQ(tracesFor(options), Traces::kLeftAlone);
  options.picture = "out.png";
  EXPECT_EQ(tracesFor(options), Traces::kUpdated);
  options.frames = "frames";
  EXPECT_EQ(tracesFor(options), Traces::kUpdated);
  options.picture.reset();
  EXPECT_EQ(tracesFor(options), Traces::kUpdated);
}

TEST_F(Runner, WritesTheSameDocumentAfterNoSweeps) {
  EXPECT_EQ(runBatchProgram({document_, "--sweeps", "0", "--output", output_}).status, 0);
  EXPECT_EQ(contentOf(output_), joined(sampleLines()));
}

TEST_F(Runner, MakesExactlyTheSweepsOfAFreshStart) {
  constexpr int sweeps = 13;
  ASSERT_EQ(runBatchProgram({kExample, "--sweeps", std::to_string(sweeps), "--output", output_, "--picture",
                             picture_, "--scale", "3"})
                .status,
            0);
  restartRandomNumbers();
  const auto model = freshModel();
  ASSERT_EQ(openDocument(*model, kExample).status, OpenStatus::kOpened);
  model->runSweeps(sweeps);
  EXPECT_EQ(contentOf(output_), writeDocument(*model));
  EXPECT_EQ(readPng(picture_).rgb, drawLattice(*model, 3).rgb);
}

std::uint64_t fnv1a(const std::string& bytes) {
  std::uint64_t hash = 14695981039346656037u;
  for (const char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
  return hash;
}

TEST_F(Runner, GivesTheSameBytesInEveryBuild) {
  // The growth example uses no exponential, so its bytes do not depend on the mathematics library either.
  ASSERT_EQ(runBatchProgram({kExample, "--sweeps", "50", "--output", output_}).status, 0);
  EXPECT_EQ(fnv1a(contentOf(output_)), 1656142788890484238u);
}

TEST_F(Runner, GivesTheSameBytesEveryTime) {
  const auto run = [&] {
    EXPECT_EQ(runBatchProgram({kExample, "--sweeps", "20", "--output", output_, "--populations", populations_,
                               "--picture", picture_})
                  .status,
              0);
    return contentOf(output_) + contentOf(populations_) + contentOf(picture_);
  };
  const std::string first = run();
  EXPECT_GT(first.size(), 10000u);
  EXPECT_EQ(run(), first);
}

TEST_F(Runner, GivesTheSameDocumentAndRowsWhetherOrNotAPictureShowsTheTraces) {
  const auto run = [&](std::vector<std::string> more) {
    more.insert(more.begin(),
                {kExample, "--sweeps", "20", "--output", output_, "--populations", populations_});
    EXPECT_EQ(runBatchProgram(more).status, 0);
    return contentOf(output_) + contentOf(populations_);
  };
  const std::string plain = run({});
  EXPECT_EQ(run({"--picture", picture_}), plain);
  EXPECT_EQ(run({"--frames", folder_ / "film", "--every", "1"}), plain);
}

TEST_F(Runner, WritesThePopulationsOfTheFirstEveryKthAndTheLastSweep) {
  ASSERT_EQ(
      runBatchProgram({kExample, "--sweeps", "10", "--populations", populations_, "--every", "4"}).status, 0);
  std::vector<long> sweeps;
  for (const auto& row : rowsOf(contentOf(populations_))) {
    sweeps.push_back(row.at(0));
    ASSERT_EQ(row.size(), 5u);
    EXPECT_EQ(std::accumulate(row.begin() + 1, row.end(), 0L), 128 * 104);
  }
  EXPECT_THAT(sweeps, ElementsAre(0, 4, 8, 10));
}

TEST_F(Runner, WritesTheFirstAndTheLastSweepOnce) {
  ASSERT_EQ(runBatchProgram({document_, "--sweeps", "0", "--populations", populations_}).status, 0);
  EXPECT_EQ(contentOf(populations_), "sweep,\"Empty space\",\"Particle\"\n0,3,3\n");
  ASSERT_EQ(
      runBatchProgram({document_, "--sweeps", "2", "--populations", populations_, "--every", "2"}).status, 0);
  EXPECT_EQ(rowsOf(contentOf(populations_)).size(), 2u);
}

TEST_F(Runner, DrawsTheLatticeWithJUpwards) {
  Lines lines = sampleWith(kSecondType + 7, "1.0000000000");
  for (const auto& [line, value] : {std::pair(3, "1"), {4, "1"}, {5, "0.5"}})
    lines[kFirstType + static_cast<std::size_t>(line)] = value;
  lines[kFirstType + 7] = "1";
  put(document_, joined(lines));
  ASSERT_EQ(runBatchProgram({document_, "--sweeps", "0", "--picture", picture_, "--scale", "1"}).status, 0);
  const Image image = readPng(picture_);
  ASSERT_EQ(image.width, 2);
  ASSERT_EQ(image.height, 3);
  const std::vector<int> empty = {255, 255, 128}, particle = {230, 204, 179};
  const std::vector<int> expected[3][2] = {{particle, empty}, {particle, particle}, {empty, empty}};
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 2; ++x) EXPECT_EQ(pixelAt(image, x, y), expected[y][x]) << x << ", " << y;
}

TEST_F(Runner, MayReplaceTheDocumentItOpened) {
  ASSERT_EQ(runBatchProgram({document_, "--sweeps", "3", "--output", document_}).status, 0);
  EXPECT_EQ(openDocument(*freshModel(), document_).status, OpenStatus::kOpened);
  EXPECT_THAT(namesIn(folder_.path()), ElementsAre("in.quorvane"));
}

TEST_F(Runner, WritesToStandardOutputThroughItsDevice) {
  const Finished finished = runBatchProgram({document_, "--sweeps", "0", "--output", "/dev/stdout"});
  EXPECT_EQ(finished.status, 0);
  EXPECT_EQ(finished.out, joined(sampleLines()));
}

TEST_F(Runner, FailsOnADocumentThatCannotBeRead) {
  const std::string missing = (folder_ / "missing").string();
  expectFailure({missing, "--sweeps", "1", "--output", output_},
                named(missing) + ": No such file or directory");
  put(document_, "2\n3\nGr\xc3\xbcn");
  expectFailure({document_, "--sweeps", "1", "--output", output_},
                named(document_) + ": line 3, column 3: a character that is not ASCII");
  expectFailure({folder_.path(), "--sweeps", "1", "--output", output_},
                named(folder_.path()) + ": Is a directory");
  const std::string longName(256, 'n');
  expectFailure({longName, "--sweeps", "1", "--output", output_}, named(longName) + ": File name too long");
  expectFailure({document_ + "/x", "--sweeps", "1", "--output", output_},
                named(document_ + "/x") + ": Not a directory");
}

TEST_F(Runner, FailsOnADocumentOutsideTheLimitsAndNamesTheLine) {
  put(document_, joined(sampleWith(kFirstSite, "7")));
  expectFailure({document_, "--sweeps", "1", "--output", output_},
                named(document_) + ": line 4: pixel type of site (0, 0) must be 0 to 1, not \"7\"");
  EXPECT_FALSE(fs::exists(output_));
}

TEST_F(Runner, FailsOnADocumentThatIsCutShortAndNamesTheLine) {
  put(document_, "2\n3\n2\n0");
  expectFailure({document_, "--sweeps", "1", "--output", output_},
                named(document_) + ": line 4: the document ends before the pixel type of site (0, 1)");
  EXPECT_FALSE(fs::exists(output_));
}

TEST_F(Runner, FailsBeforeItRunsIfAnOutputCannotBeWritten) {
  const std::string missing = (folder_ / "missing/out").string();
  // A run of this many sweeps would never end.
  for (const char* option : {"--output", "--populations", "--picture"})
    expectFailure({document_, "--sweeps", "9000000000000000000", option, missing},
                  named(missing) + ": No such file or directory");
  expectFailure({document_, "--sweeps", "9000000000000000000", "--output", folder_.path()},
                named(folder_.path()) + ": Is a directory");
}

TEST_F(Runner, WritesNoOutputAtAllIfOneOfThemCannotBeWritten) {
  put(populations_, "old");
  const std::string missing = (folder_ / "missing/out").string();
  expectFailure(
      {document_, "--sweeps", "1", "--output", output_, "--populations", populations_, "--picture", missing},
      named(missing) + ": No such file or directory");
  EXPECT_EQ(contentOf(populations_), "old");
  EXPECT_THAT(namesIn(folder_.path()), ElementsAre("in.quorvane", "out.csv"));
}

TEST_F(Runner, FailsIfTheDiskOfAnOutputIsFull) {
  expectFailure({document_, "--sweeps", "1", "--output", "/dev/full"},
                "\"/dev/full\": No space left on device");
}

TEST_F(Runner, ShowsItsProgressOnATerminalOnly) {
  if (const auto why = whyNoTerminal(); !why.empty()) GTEST_SKIP() << why;
  const std::vector<std::string> arguments = {document_, "--sweeps", "1000", "--output", output_};
  EXPECT_THAT(runBatchProgramOnTerminal(arguments).out, HasSubstr("sweep 0 of 1000"));
  EXPECT_EQ(runBatchProgramOnTerminal(arguments).status, 0);
  EXPECT_THAT(runBatchProgram(arguments).err, IsEmpty());
}

TEST_F(Runner, RecognisesALinkToAnotherOutputAsTheSameFile) {
  put(output_, "kept");
  fs::create_symlink(output_, populations_);
  const Finished finished =
      runBatchProgram({document_, "--sweeps", "1", "--output", output_, "--populations", populations_});
  EXPECT_EQ(finished.status, 2);
  EXPECT_THAT(finished.err, HasSubstr("is asked for twice"));
  EXPECT_EQ(contentOf(output_), "kept");
}

}  // namespace
}  // namespace quorvane
