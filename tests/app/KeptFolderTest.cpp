#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include "KeptFolderSupport.h"
#include "app/KeptFolder.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class KeptFolder : public ::testing::Test {
 protected:
  std::vector<std::string> copies() const {
    std::vector<std::string> names;
    for (const fs::path& copy : keptCopies(kept_.path())) names.push_back(copy.filename());
    return names;
  }
  std::vector<std::string> untold() const {
    std::vector<std::string> names;
    for (const fs::path& copy : takeUntoldCopies(kept_.path())) names.push_back(copy.filename());
    return names;
  }
  /// A copy of a given second; smaller ones are older.
  void writeCopy(int second) const {
    kept_.write(copyOf(second), "a document");
    kept_.age(copyOf(second), std::chrono::seconds(1000 - second));
  }

  const TemporaryKeptFolder kept_{};
};

TEST_F(KeptFolder, IsInTheStateHomeOrInTheUsersHome) {
  const Variable home("HOME", kept_.state().string());
  {
    const Variable state("XDG_STATE_HOME", "/somewhere");
    EXPECT_EQ(keptFolder(), "/somewhere/quorvane");
  }
  for (const auto& none : {std::optional<std::string>(), std::optional<std::string>(""),
                           std::optional<std::string>("not/absolute")}) {
    const Variable state("XDG_STATE_HOME", none);
    EXPECT_EQ(keptFolder(), kept_.state() / ".local/state/quorvane");
  }
}

TEST_F(KeptFolder, IsUnknownWithoutAHomeDirectory) {
  const Variable state("XDG_STATE_HOME", std::nullopt);
  for (const auto& none : {std::optional<std::string>(), std::optional<std::string>("home"),
                           std::optional((kept_.state() / "gone").string())}) {
    const Variable home("HOME", none);
    EXPECT_EQ(keptFolder(), "");
  }
}

TEST_F(KeptFolder, IsCreatedPrivateWithItsParents) {
  const fs::path folder = kept_.state() / "a" / "b" / "quorvane";
  fs::path copy;
  ASSERT_FALSE(claimCopy(folder, copy));
  for (const fs::path& made : {folder, folder.parent_path(), folder.parent_path().parent_path()})
    EXPECT_EQ(permissionsOf(made), 0700u) << made;
  EXPECT_EQ(permissionsOf(copy), 0600u);
  EXPECT_EQ(copy.parent_path(), folder);
}

TEST_F(KeptFolder, NamesCopiesByTimeAndUniquely) {
  std::vector<std::string> claimed;
  for (int i = 0; i < 20; ++i) {
    fs::path copy;
    ASSERT_FALSE(claimCopy(kept_.path(), copy));
    claimed.push_back(copy.filename());
  }
  EXPECT_EQ(kept_.names(), claimed) << "each a file of its own, sorted by time";
  for (const std::string& name : claimed)
    EXPECT_THAT(name, testing::MatchesRegex("20..-..-.. ..\\...\\...\\.quorvane"));
}

TEST_F(KeptFolder, ReportsWhyNoCopyCanBeMade) {
  kept_.write("file", "");
  fs::path copy;
  EXPECT_EQ(claimCopy(kept_.path() / "file", copy), std::errc::not_a_directory);
  EXPECT_EQ(claimCopy(kept_.path() / "file" / "folder", copy), std::errc::not_a_directory);
}

TEST_F(KeptFolder, ListsCopiesByTheTimeOfTheirWriting) {
  for (const int second : {2, 7, 3}) writeCopy(second);
  // As when clocks are set back.
  kept_.age(copyOf(7), std::chrono::hours(1));
  EXPECT_THAT(copies(), ElementsAre(copyOf(3), copyOf(2), copyOf(7)));
}

TEST_F(KeptFolder, KeepsTheFiveLastAndFilesOfOtherNames) {
  for (int second = 1; second <= 7; ++second) writeCopy(second);
  const std::vector<std::string> others = {"my model.quorvane", "2001-02-03.quorvane", "x" + copyOf(1),
                                           copyOf(1) + "~"};
  for (const std::string& other : others) {
    kept_.write(other, "other");
    kept_.age(other, std::chrono::hours(1));
  }
  fs::create_symlink(kept_.path() / others[0], kept_.path() / copyOf(0));
  tidyKeptFolder(kept_.path());
  EXPECT_THAT(copies(), ElementsAre(copyOf(7), copyOf(6), copyOf(5), copyOf(4), copyOf(3)));
  for (const std::string& other : others) EXPECT_EQ(kept_.read(other), "other") << other;
  EXPECT_TRUE(fs::is_symlink(kept_.path() / copyOf(0)));
}

TEST_F(KeptFolder, KeepsTheCopiesOfOpenWindows) {
  for (int second = 1; second <= 7; ++second) writeCopy(second);
  std::ignore = untold();
  for (const int second : {8, 9}) writeCopy(second);
  const int first = ::open((kept_.path() / copyOf(1)).c_str(), O_RDWR | O_CLOEXEC);
  const int last = ::open((kept_.path() / copyOf(9)).c_str(), O_RDWR | O_CLOEXEC);
  markInUse(first);
  markInUse(last);
  EXPECT_THAT(untold(), ElementsAre(copyOf(8)));
  tidyKeptFolder(kept_.path());
  EXPECT_THAT(copies(), ElementsAre(copyOf(9), copyOf(8), copyOf(7), copyOf(6), copyOf(5), copyOf(1)));
  ::close(first);
  ::close(last);
  EXPECT_FALSE(isInUse(kept_.path() / copyOf(1)));
  EXPECT_THAT(untold(), ElementsAre(copyOf(9)));
}

TEST_F(KeptFolder, ReportsEachCopyOnce) {
  EXPECT_THAT(untold(), IsEmpty());
  EXPECT_THAT(kept_.names(), IsEmpty()) << "nothing is made where there is nothing to tell";
  for (const int second : {1, 2}) writeCopy(second);
  EXPECT_THAT(untold(), ElementsAre(copyOf(2), copyOf(1)));
  EXPECT_THAT(untold(), IsEmpty());
  // Older than those reported: it belonged to a window that has crashed since.
  kept_.write(copyOf(0), "a document");
  kept_.age(copyOf(0), std::chrono::hours(1));
  EXPECT_THAT(untold(), ElementsAre(copyOf(0)));
  EXPECT_THAT(untold(), IsEmpty());
  EXPECT_EQ(permissionsOf(kept_.path() / ".told"), 0600u);
}

TEST_F(KeptFolder, NeverBlocksOnAPipeThatIsNamedLikeACopy) {
  for (int second = 1; second <= 7; ++second) writeCopy(second);
  for (const std::string& name : {copyOf(0), copyOf(8), std::string(".told")})
    ASSERT_EQ(::mkfifo((kept_.path() / name).c_str(), 0600), 0);
  EXPECT_FALSE(isInUse(kept_.path() / copyOf(0)));
  EXPECT_EQ(untold().size(), 7u);
  tidyKeptFolder(kept_.path());
  EXPECT_EQ(copies().size(), 5u);
}

TEST_F(KeptFolder, RemovesPartialFilesOfKilledProcesses) {
  // The id of a process that has ended.
  const pid_t gone = ::fork();
  if (gone == 0) ::_exit(0);
  ASSERT_EQ(::waitpid(gone, nullptr, 0), gone);
  const std::string partial = "." + copyOf(1) + ".quorvane-" + std::to_string(gone) + ".partial";
  const std::string alive = "." + copyOf(1) + ".quorvane-" + std::to_string(::getppid()) + ".partial";
  for (const std::string& name : {partial, alive, copyOf(1), copyOf(2)}) kept_.write(name, "");
  kept_.age(copyOf(1), std::chrono::hours(1));
  EXPECT_THAT(copies(), IsEmpty());
  EXPECT_THAT(untold(), IsEmpty());
  tidyKeptFolder(kept_.path());
  EXPECT_THAT(kept_.names(), ElementsAre(alive, copyOf(2)))
      << "another window may be about to write the second";
}

}  // namespace
}  // namespace quorvane
