#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "FileSizeLimit.h"
#include "Files.h"
#include "checkpoint/CheckpointFile.h"
#include "checkpoint/SealedBytes.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class CheckpointFiles : public testing::Test {
 protected:
  template <typename Work>
  static std::string whyRefused(const Work& work) {
    try {
      work();
      return "";
    } catch (const CheckpointError& error) {
      return error.what();
    }
  }

  TemporaryFolder folder_;
  const fs::path path_ = folder_ / "run.checkpoint";
};

TEST_F(CheckpointFiles, GiveWhatWasWrittenLast) {
  {
    CheckpointFile file(path_);
    file.write("first");
    file.write("second");
  }
  EXPECT_EQ(CheckpointFile(path_).read(), "second");
  EXPECT_THAT(namesIn(folder_.path()), ElementsAre("run.checkpoint"));
}

TEST_F(CheckpointFiles, AreInUseDuringTheLifeOfTheirObject) {
  const std::string inUse = "is in use by another run at this moment";
  CheckpointFile file(path_), other(path_);
  for (const char* content : {"first", "second", "third"}) {
    file.write(content);
    EXPECT_EQ(whyRefused([&] { other.claim(); }), inUse);
    EXPECT_EQ(whyRefused([&] { other.read(); }), inUse);
    EXPECT_EQ(whyRefused([&] { other.write("other"); }), inUse);
  }
  EXPECT_EQ(contentOfSealed(contentOf(path_)), "third");
  fs::remove(path_);
  file.write("fourth");
  EXPECT_EQ(contentOfSealed(contentOf(path_)), "fourth");
}

TEST_F(CheckpointFiles, AreFreeAfterIt) {
  { CheckpointFile(path_).write("first"); }
  CheckpointFile reader(path_);
  EXPECT_EQ(reader.read(), "first");
  EXPECT_NE(whyRefused([&] { CheckpointFile(path_).claim(); }), "");
  reader.write("second");
  EXPECT_NE(whyRefused([&] { CheckpointFile(path_).claim(); }), "");
}

TEST_F(CheckpointFiles, AreNotReplacedIfAnotherRunHasPutItsOwnThere) {
  CheckpointFile file(path_), other(folder_ / "other");
  file.write("first");
  other.write("of another run");
  fs::rename(folder_ / "other", path_);
  EXPECT_EQ(whyRefused([&] { file.write("second"); }), "is in use by another run at this moment");
  EXPECT_EQ(contentOfSealed(contentOf(path_)), "of another run");
}

TEST_F(CheckpointFiles, StayWhenTheNewOneCannotBeWritten) {
  CheckpointFile file(path_);
  file.write("first");
  {
    const FileSizeLimit limit(40);
    EXPECT_EQ(whyRefused([&] { file.write(std::string(1000, 'x')); }), "File too large");
  }
  EXPECT_EQ(contentOfSealed(contentOf(path_)), "first");
  EXPECT_THAT(namesIn(folder_.path()), ElementsAre("run.checkpoint"));
  file.write("second");
  EXPECT_EQ(contentOfSealed(contentOf(path_)), "second");
}

TEST_F(CheckpointFiles, AreRegularFiles) {
  EXPECT_EQ(whyRefused([&] { CheckpointFile(path_).read(); }), "No such file or directory");
  EXPECT_EQ(whyRefused([&] { CheckpointFile(folder_.path()).read(); }), "Is a directory");
  const fs::path fifo = folder_ / "fifo";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  EXPECT_EQ(whyRefused([&] { CheckpointFile(fifo).read(); }), "is not a regular file");
}

TEST_F(CheckpointFiles, MayBeLinks) {
  fs::create_symlink("real", path_);
  CheckpointFile file(path_);
  file.write("first");
  file.write("second");
  EXPECT_TRUE(fs::is_symlink(path_));
  EXPECT_NE(whyRefused([&] { CheckpointFile(folder_ / "real").claim(); }), "");
  EXPECT_EQ(contentOfSealed(contentOf(folder_ / "real")), "second");
}

}  // namespace
}  // namespace quorvane
