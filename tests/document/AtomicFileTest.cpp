#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "DocumentSupport.h"
#include "FileSizeLimit.h"
#include "document/AtomicFile.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

std::error_code writeTo(const fs::path& target, const std::string& content) {
  return writeFileAtomically(target, content).error;
}

TEST(AtomicFile, WritesANewFileWithTheUsualPermissions) {
  const TemporaryFolder folder;
  const mode_t umaskBefore = ::umask(022);
  EXPECT_FALSE(writeTo(folder / "new", "content"));
  ::umask(umaskBefore);
  EXPECT_EQ(contentOf(folder / "new"), "content");
  EXPECT_EQ(permissionsOf(folder / "new"), 0644);
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("new"));
}

TEST(AtomicFile, WritesAnEmptyFile) {
  const TemporaryFolder folder;
  put(folder / "file", "old");
  EXPECT_FALSE(writeTo(folder / "file", ""));
  EXPECT_EQ(fs::file_size(folder / "file"), 0u);
}

TEST(AtomicFile, ReplacesAnExistingFileAndKeepsItsPermissions) {
  const TemporaryFolder folder;
  put(folder / "file", "a longer content than the new one");
  ASSERT_EQ(::chmod((folder / "file").c_str(), 0640), 0);
  EXPECT_FALSE(writeTo(folder / "file", "new"));
  EXPECT_EQ(contentOf(folder / "file"), "new");
  EXPECT_EQ(permissionsOf(folder / "file"), 0640);
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("file"));
}

TEST(AtomicFile, NeverShowsAReaderOfTheOldFileTheNewContent) {
  const TemporaryFolder folder;
  put(folder / "file", "old");
  std::ifstream reader(folder / "file");
  EXPECT_FALSE(writeTo(folder / "file", "new"));
  std::string seen;
  reader >> seen;
  EXPECT_EQ(seen, "old");
}

TEST(AtomicFile, FollowsSymbolicLinksAndKeepsThem) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "elsewhere");
  put(folder / "elsewhere/file", "old");
  fs::create_symlink("elsewhere/file", folder / "second");
  fs::create_symlink("second", folder / "first");
  EXPECT_FALSE(writeTo(folder / "first", "new"));
  EXPECT_TRUE(fs::is_symlink(folder / "first"));
  EXPECT_TRUE(fs::is_symlink(folder / "second"));
  EXPECT_EQ(contentOf(folder / "elsewhere/file"), "new");
  EXPECT_THAT(namesIn(folder / "elsewhere"), ElementsAre("file"));
}

TEST(AtomicFile, CreatesTheMissingTargetOfALink) {
  const TemporaryFolder folder;
  fs::create_symlink(folder / "target", folder / "link");
  EXPECT_FALSE(writeTo(folder / "link", "new"));
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
  EXPECT_EQ(contentOf(folder / "target"), "new");
}

TEST(AtomicFile, FailsOnLinksThatLeadInACircle) {
  const TemporaryFolder folder;
  fs::create_symlink("b", folder / "a");
  fs::create_symlink("a", folder / "b");
  EXPECT_TRUE(writeTo(folder / "a", "new"));
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("a", "b"));
}

TEST(AtomicFile, FailsWhereTheFolderDoesNotExistOrIsAFile) {
  const TemporaryFolder folder;
  put(folder / "file", "old");
  EXPECT_EQ(writeTo(folder / "missing/file", "new"), std::errc::no_such_file_or_directory);
  EXPECT_EQ(writeTo(folder / "file/file", "new"), std::errc::not_a_directory);
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("file"));
  EXPECT_EQ(contentOf(folder / "file"), "old");
}

TEST(AtomicFile, FailsOnAFolder) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "target");
  EXPECT_EQ(writeTo(folder / "target", "new"), std::errc::is_a_directory);
  EXPECT_TRUE(fs::is_directory(folder / "target"));
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("target"));
  EXPECT_TRUE(writeTo("", "new"));
}

TEST(AtomicFile, LeavesEverythingAsItWasWhenTheDiskRefusesTheContent) {
  const TemporaryFolder folder;
  put(folder / "file", "old");
  const std::string content(100000, 'x');
  std::error_code error;
  {
    const FileSizeLimit limit(5000);
    error = writeTo(folder / "file", content);
  }
  EXPECT_EQ(error, std::errc::file_too_large);
  EXPECT_EQ(contentOf(folder / "file"), "old");
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("file"));
}

TEST(AtomicFile, WritesToADeviceItself) {
  EXPECT_FALSE(writeTo("/dev/null", "content"));
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  EXPECT_EQ(writeTo("/dev/full", "content"), std::errc::no_space_on_device);
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST(AtomicFile, TakesNamesAsLongAsTheFileSystemDoes) {
  const TemporaryFolder folder;
  EXPECT_FALSE(writeTo(folder / std::string(255, 'n'), "content"));
  EXPECT_TRUE(writeTo(folder / std::string(256, 'n'), "content"));
  EXPECT_THAT(namesIn(folder.path()), ElementsAre(std::string(255, 'n')));
}

TEST(AtomicFile, CheckSaysWhetherAWriteWouldFailAndLeavesNoTrace) {
  const TemporaryFolder folder;
  put(folder / "file", "old");
  EXPECT_FALSE(checkFileCanBeWritten(folder / "file"));
  EXPECT_FALSE(checkFileCanBeWritten(folder / "new"));
  EXPECT_FALSE(checkFileCanBeWritten("/dev/null"));
  EXPECT_TRUE(checkFileCanBeWritten(folder.path()));
  EXPECT_TRUE(checkFileCanBeWritten(folder / "missing/file"));
  EXPECT_TRUE(checkFileCanBeWritten(folder / "file/file"));
  EXPECT_TRUE(checkFileCanBeWritten(""));
  EXPECT_EQ(contentOf(folder / "file"), "old");
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("file"));
}

}  // namespace
}  // namespace quorvane
