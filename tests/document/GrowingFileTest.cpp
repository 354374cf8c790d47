#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <string>

#include "DocumentSupport.h"
#include "FileSizeLimit.h"
#include "document/GrowingFile.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

std::string partialOf(const std::string& name, const std::string& more = "") {
  return "." + name + ".quorvane-" + std::to_string(::getpid()) + more + ".partial";
}

TEST(GrowingFile, IsAFileNamedAfterTheTargetUntilItIsFinished) {
  const TemporaryFolder folder;
  put(folder / "counts.csv", "old");
  GrowingFile file;
  ASSERT_FALSE(file.open(folder / "counts.csv"));
  EXPECT_EQ(file.partial(), folder / partialOf("counts.csv"));
  for (const char* row : {"1\n", "2\n"}) ASSERT_FALSE(file.append(row));
  EXPECT_EQ(contentOf(file.partial()), "1\n2\n");
  EXPECT_EQ(contentOf(folder / "counts.csv"), "old");
  EXPECT_FALSE(file.finish());
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("counts.csv"));
  EXPECT_EQ(contentOf(folder / "counts.csv"), "1\n2\n");
}

TEST(GrowingFile, IsRemovedUnlessItIsKept) {
  const TemporaryFolder folder;
  for (const bool kept : {false, true}) {
    GrowingFile file;
    ASSERT_FALSE(file.open(folder / "file"));
    ASSERT_FALSE(file.append("row\n"));
    if (kept) file.keep();
    EXPECT_EQ(file.isKept(), kept);
    EXPECT_THAT(namesIn(folder.path()), ElementsAre(partialOf("file")));
  }
  EXPECT_THAT(namesIn(folder.path()), ElementsAre(partialOf("file")));
  EXPECT_EQ(contentOf(folder / partialOf("file")), "row\n");
}

TEST(GrowingFile, DoesNotReplaceAFileOfTheSameName) {
  const TemporaryFolder folder;
  put(folder / partialOf("file"), "of a run that was killed");
  GrowingFile first, second;
  ASSERT_FALSE(first.open(folder / "file"));
  ASSERT_FALSE(second.open(folder / "file"));
  EXPECT_EQ(first.partial(), folder / partialOf("file", "-1"));
  EXPECT_EQ(second.partial(), folder / partialOf("file", "-2"));
  ASSERT_FALSE(first.append("first"));
  ASSERT_FALSE(second.append("second"));
  EXPECT_FALSE(second.finish());
  EXPECT_EQ(contentOf(folder / "file"), "second");
  EXPECT_FALSE(first.finish());
  EXPECT_EQ(contentOf(folder / "file"), "first");
  EXPECT_EQ(contentOf(folder / partialOf("file")), "of a run that was killed");
}

TEST(GrowingFile, IsAsPrivateAsTheTargetFromTheStart) {
  const TemporaryFolder folder;
  put(folder / "file", "old");
  ASSERT_EQ(::chmod((folder / "file").c_str(), 0600), 0);
  GrowingFile file;
  ASSERT_FALSE(file.open(folder / "file"));
  EXPECT_EQ(permissionsOf(file.partial()), 0600);
  ASSERT_EQ(::chmod((folder / "file").c_str(), 0640), 0);
  ASSERT_FALSE(file.finish());
  EXPECT_EQ(permissionsOf(folder / "file"), 0640);
}

TEST(GrowingFile, IsBesideTheTargetOfALink) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "elsewhere");
  fs::create_symlink("elsewhere/file", folder / "link");
  GrowingFile file;
  ASSERT_FALSE(file.open(folder / "link"));
  EXPECT_EQ(file.partial(), folder / ("elsewhere/" + partialOf("file")));
  EXPECT_FALSE(file.finish());
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
  EXPECT_THAT(namesIn(folder / "elsewhere"), ElementsAre("file"));
}

TEST(GrowingFile, CutsTheNameOfALongTargetBetweenCharacters) {
  const TemporaryFolder folder;
  std::string name = "n";
  while (name.size() < 255) name += "\u00e4";
  GrowingFile file;
  ASSERT_FALSE(file.open(folder / name));
  const std::string partial = file.partial().filename();
  EXPECT_LE(partial.size(), 255u);
  EXPECT_GE(partial.size(), 253u);
  const auto end = partial.find(".quorvane-");
  EXPECT_EQ(end % 2, 0u) << "half a character: " << partial;
  EXPECT_EQ(partial.substr(1, end - 1), name.substr(0, end - 1));
  EXPECT_FALSE(file.finish());
  EXPECT_THAT(namesIn(folder.path()), ElementsAre(name));
}

TEST(GrowingFile, FailsAtOnceForANameThatTheTargetCannotHave) {
  const TemporaryFolder folder;
  EXPECT_EQ(GrowingFile().open(folder / std::string(256, 'n')), std::errc::filename_too_long);
  EXPECT_EQ(GrowingFile().open(folder.path()), std::errc::is_a_directory);
  EXPECT_EQ(GrowingFile().open(folder / "missing/file"), std::errc::no_such_file_or_directory);
  EXPECT_EQ(GrowingFile().open(""), std::errc::no_such_file_or_directory);
  EXPECT_THAT(namesIn(folder.path()), IsEmpty());
}

TEST(GrowingFile, TakesAPathAsLongAsTheSystemDoes) {
  const TemporaryFolder folder;
  fs::path deep = folder.path();
  constexpr std::size_t longest = 4095;
  while (deep.native().size() + 201 < longest) {
    deep /= std::string(std::min<std::size_t>(200, longest - deep.native().size() - 42), 'd');
    fs::create_directory(deep);
  }
  const fs::path target = deep / std::string(longest - deep.native().size() - 1, 'n');
  GrowingFile file;
  ASSERT_FALSE(file.open(target)) << target.native().size();
  EXPECT_EQ(file.partial(), deep / partialOf("").substr(1));
  EXPECT_FALSE(file.finish());
  EXPECT_EQ(namesIn(deep).size(), 1u);
}

TEST(GrowingFile, HoldsNoPartOfATextThatTheDiskRefuses) {
  const TemporaryFolder folder;
  GrowingFile file;
  ASSERT_FALSE(file.open(folder / "file"));
  ASSERT_FALSE(file.append("a row\n"));
  {
    const FileSizeLimit limit(5000);
    EXPECT_EQ(file.append(std::string(100000, 'x')), std::errc::file_too_large);
  }
  EXPECT_EQ(contentOf(file.partial()), "a row\n");
  ASSERT_FALSE(file.append("another\n"));
  ASSERT_FALSE(file.finish());
  EXPECT_EQ(contentOf(folder / "file"), "a row\nanother\n");
}

TEST(GrowingFile, StaysIfTheTargetHasBecomeAFolder) {
  const TemporaryFolder folder;
  GrowingFile file;
  ASSERT_FALSE(file.open(folder / "file"));
  ASSERT_FALSE(file.append("row\n"));
  fs::create_directory(folder / "file");
  EXPECT_EQ(file.finish(), std::errc::is_a_directory);
  EXPECT_EQ(contentOf(file.partial()), "row\n");
}

TEST(GrowingFile, IsNotUsedForADevice) {
  GrowingFile null, full;
  ASSERT_FALSE(null.open("/dev/null"));
  EXPECT_TRUE(null.partial().empty());
  EXPECT_FALSE(null.append("row\n"));
  EXPECT_FALSE(null.finish());
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  ASSERT_FALSE(full.open("/dev/full"));
  EXPECT_EQ(full.append("row\n"), std::errc::no_space_on_device);
}

TEST(GrowingFile, GoesOnWithOneThatAnotherProcessLeft) {
  const TemporaryFolder folder;
  const std::string left = ".counts.csv.quorvane-1.partial";
  put(folder / left, "1\n2\n3");
  GrowingFile file;
  ASSERT_FALSE(file.openAgain(folder / "counts.csv", left, 4));
  EXPECT_EQ(contentOf(folder / left), "1\n2\n");
  ASSERT_FALSE(file.append("four\n"));
  EXPECT_FALSE(file.sync());
  EXPECT_FALSE(file.finish());
  EXPECT_EQ(contentOf(folder / "counts.csv"), "1\n2\nfour\n");
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("counts.csv"));
}

TEST(GrowingFile, GoesOnWithNoneThatIsShortInUseOrOfAnotherTarget) {
  const TemporaryFolder folder;
  const std::string left = ".counts.csv.quorvane-1.partial", other = ".other.quorvane-1.partial";
  for (const std::string& name : {left, other}) put(folder / name, "1\n2\n");
  EXPECT_TRUE(GrowingFile().openAgain(folder / "counts.csv", left, 5));
  EXPECT_TRUE(GrowingFile().openAgain(folder / "counts.csv", other, 2));
  EXPECT_TRUE(GrowingFile().openAgain(folder / "counts.csv", ".counts.csv.quorvane-2.partial", 0));
  GrowingFile user;
  ASSERT_FALSE(user.openAgain(folder / "counts.csv", left, 4));
  EXPECT_TRUE(GrowingFile().openAgain(folder / "counts.csv", left, 2));
  for (const std::string& name : {left, other}) EXPECT_EQ(contentOf(folder / name), "1\n2\n");
}

TEST(GrowingFile, ThatIsGoneOnWithStaysIfItIsNotFinished) {
  const TemporaryFolder folder;
  const std::string left = ".counts.csv.quorvane-1.partial";
  put(folder / left, "1\n");
  { ASSERT_FALSE(GrowingFile().openAgain(folder / "counts.csv", left, 2)); }
  EXPECT_THAT(namesIn(folder.path()), ElementsAre(left));
}

}  // namespace
}  // namespace quorvane
