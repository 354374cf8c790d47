#include <gmock/gmock.h>

#include <algorithm>
#include <future>
#include <optional>

#include "../document/FileSizeLimit.h"
#include "KeptFolderSupport.h"
#include "app/KeptCopy.h"
#include "app/KeptFolder.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class KeptCopyTest : public ::testing::Test {
 protected:
  static std::string nameOf(const KeptCopy& copy) { return copy.path().filename(); }

  const TemporaryKeptFolder kept_{};
};

TEST_F(KeptCopyTest, IsOneFileThatTheNextCopyReplaces) {
  KeptCopy copy(kept_.path());
  EXPECT_FALSE(copy.isThere());
  ASSERT_TRUE(copy.write("first").saved);
  const std::string first = nameOf(copy);
  EXPECT_TRUE(copy.isThere());
  EXPECT_EQ(kept_.read(first), "first");
  ASSERT_TRUE(copy.write("second").saved);
  EXPECT_GT(nameOf(copy), first);
  EXPECT_THAT(kept_.names(), ElementsAre(nameOf(copy)));
  EXPECT_EQ(kept_.read(nameOf(copy)), "second");
  EXPECT_EQ(permissionsOf(copy.path()), 0600u);
}

TEST_F(KeptCopyTest, StaysWhenTheWindowClosesAndIsDiscardedOnlyByIt) {
  std::optional<KeptCopy> copy(std::in_place, kept_.path());
  ASSERT_TRUE(copy->write("first").saved);
  const fs::path path = copy->path();
  EXPECT_TRUE(isInUse(path));
  copy.reset();
  EXPECT_FALSE(isInUse(path));
  KeptCopy other(kept_.path());
  ASSERT_TRUE(other.write("second").saved);
  other.discard();
  EXPECT_FALSE(other.isThere());
  EXPECT_THAT(kept_.names(), ElementsAre(path.filename()));
}

TEST_F(KeptCopyTest, SixWindowsAtOnceKeepTheirs) {
  std::vector<std::unique_ptr<KeptCopy>> windows;
  for (int i = 0; i < 6; ++i) {
    windows.push_back(std::make_unique<KeptCopy>(kept_.path()));
    ASSERT_TRUE(windows.back()->write("window " + std::to_string(i)).saved);
  }
  for (int i = 0; i < 6; ++i) EXPECT_EQ(kept_.read(nameOf(*windows[i])), "window " + std::to_string(i));
  windows.clear();
  KeptCopy next(kept_.path());
  ASSERT_TRUE(next.write("next").saved);
  EXPECT_THAT(kept_.names(), SizeIs(kMaxKeptCopies));
}

TEST_F(KeptCopyTest, TwoWindowsThatWriteAtOnceHaveSeparateFiles) {
  std::vector<std::future<bool>> writers;
  for (int i = 0; i < 2; ++i)
    writers.push_back(std::async(std::launch::async, [this, i] {
      KeptCopy copy(kept_.path());
      for (int time = 0; time < 20; ++time)
        if (!copy.write("window " + std::to_string(i)).saved) return false;
      return copy.isThere() && kept_.read(nameOf(copy)) == "window " + std::to_string(i);
    }));
  for (auto& writer : writers) EXPECT_TRUE(writer.get());
  EXPECT_THAT(kept_.names(), SizeIs(2));
}

TEST_F(KeptCopyTest, ADocumentThatWasSavedInItsPlaceIsNotRemoved) {
  KeptCopy copy(kept_.path());
  ASSERT_TRUE(copy.write("kept").saved);
  const std::string name = nameOf(copy);
  ASSERT_TRUE(saveDocument("saved by the user", kept_.path() / name).saved);
  EXPECT_FALSE(copy.isThere());
  copy.discard();
  EXPECT_EQ(kept_.read(name), "saved by the user");
}

TEST_F(KeptCopyTest, OnAFullDiskTheFormerCopyStays) {
  KeptCopy copy(kept_.path());
  ASSERT_TRUE(copy.write("kept").saved);
  {
    const FileSizeLimit limit(10);
    const SaveResult result = copy.write(std::string(100, 'x'));
    EXPECT_FALSE(result.saved);
    EXPECT_EQ(result.reason, "File too large");
  }
  EXPECT_TRUE(copy.isThere());
  EXPECT_THAT(kept_.names(), ElementsAre(nameOf(copy)));
  EXPECT_EQ(kept_.read(nameOf(copy)), "kept");
}

TEST_F(KeptCopyTest, ReportsWhyItCannotBeWritten) {
  EXPECT_EQ(KeptCopy({}).write("x").reason, "neither XDG_STATE_HOME nor HOME names a folder");
  EXPECT_EQ(KeptCopy("/dev/null/quorvane").write("x").reason, "Not a directory");
}

}  // namespace
}  // namespace quorvane
