#include "RunnerTest.h"
#include "batch/FrameFolder.h"
#include "batch/Streams.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class Frames : public Runner {
 protected:
  const fs::path film_ = folder_ / "film";
};

TEST_F(Frames, AreNumberedFromZeroInAFolderThatIsMade) {
  FrameFolder frames(folder_ / "deep/film", 2);
  for (const char* content : {"a", "b", "c"}) frames.add(content);
  const fs::path film = folder_ / "deep/film";
  EXPECT_THAT(namesIn(film), ElementsAre("frame-000000.png", "frame-000001.png", "frame-000002.png"));
  EXPECT_EQ(contentOf(film / "frame-000001.png"), "b");
}

TEST_F(Frames, HaveNamesOfTheSameLength) {
  FrameFolder(film_, 1'000'000).add("");
  EXPECT_THAT(namesIn(film_), ElementsAre("frame-0000000.png"));
}

TEST_F(Frames, OfAnotherRunAreNotChanged) {
  fs::create_directory(film_);
  for (const char* other : {"frame-.png", "frame-1.jpg", "frame-x1.png", "notes.txt"}) put(film_ / other, "");
  FrameFolder(film_, 1).add("first");
  EXPECT_THROW(FrameFolder(film_, 1), BatchFailure);
  EXPECT_EQ(contentOf(film_ / "frame-000000.png"), "first");
  expectFailure({document_, "--sweeps", "1", "--frames", film_},
                named(film_) + ": holds frames of another run (frame-000000.png)");
}

TEST_F(Frames, AreThePicturesAfterTheStartEveryKthAndTheLastSweep) {
  ASSERT_EQ(
      runBatchProgram({kExample, "--sweeps", "10", "--frames", film_, "--every", "4", "--scale", "2"}).status,
      0);
  const int sweeps[] = {0, 4, 8, 10};
  ASSERT_EQ(namesIn(film_).size(), std::size(sweeps));
  for (std::size_t n = 0; n < std::size(sweeps); ++n) {
    ASSERT_EQ(runBatchProgram(
                  {kExample, "--sweeps", std::to_string(sweeps[n]), "--picture", picture_, "--scale", "2"})
                  .status,
              0);
    EXPECT_EQ(contentOf(film_ / ("frame-00000" + std::to_string(n) + ".png")), contentOf(picture_));
  }
}

TEST_F(Frames, AreOfTheSameSweepsAsTheRowsOfPopulations) {
  for (const char* every : {"1", "3", "7", "20"}) {
    const fs::path film = folder_ / every;
    ASSERT_EQ(runBatchProgram({document_, "--sweeps", "7", "--every", every, "--frames", film,
                               "--populations", populations_})
                  .status,
              0);
    EXPECT_EQ(namesIn(film).size(), rowsOf(contentOf(populations_)).size()) << every;
  }
}

TEST_F(Frames, ShowTheTracesIfThePictureDoes) {
  ASSERT_EQ(runBatchProgram({kExample, "--sweeps", "3", "--every", "3", "--frames", film_, "--picture",
                             picture_, "--trace", "--scale", "1"})
                .status,
            0);
  EXPECT_EQ(contentOf(film_ / "frame-000001.png"), contentOf(picture_));
  EXPECT_EQ(readPng(picture_).width, 5 * 128 + 4 * kPanelGap);
}

TEST_F(Frames, FailBeforeTheRunIfTheFolderCannotBeMadeOrWrittenTo) {
  expectFailure({document_, "--sweeps", "9000000000000000000", "--frames", document_},
                named(document_) + ": Not a directory");
  expectFailure({document_, "--sweeps", "9000000000000000000", "--frames", "/proc/film"},
                "\"/proc/film\": No such file or directory");
}

TEST_F(Frames, AreNotStartedForADocumentThatIsRefused) {
  put(document_, "300\n");
  EXPECT_EQ(runBatchProgram({document_, "--sweeps", "1", "--frames", film_}).status, 1);
  EXPECT_FALSE(fs::exists(film_));
}

TEST_F(Frames, EndTheRunIfOneCannotBeWritten) {
  fs::create_directory(film_);
  FrameFolder frames(film_, 9);
  frames.add("0");
  fs::create_directory(film_ / "frame-000001.png");
  try {
    frames.add("1");
    FAIL() << "a folder was replaced";
  } catch (const BatchFailure& failure) {
    EXPECT_EQ(failure.what(), named(film_ / "frame-000001.png") + ": Is a directory");
  }
}

}  // namespace
}  // namespace quorvane
