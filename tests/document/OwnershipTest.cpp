#include <gmock/gmock.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

#include "DocumentSupport.h"
#include "document/AtomicFile.h"
#include "document/GrowingFile.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

constexpr uid_t kPerson = 12345, kOther = 23456;
constexpr gid_t kGroup = 34567;

struct stat statusOf(const fs::path& file) {
  struct stat status = {};
  EXPECT_EQ(::stat(file.c_str(), &status), 0);
  return status;
}

class Ownership : public testing::Test {
 protected:
  Ownership() { std::ofstream(file_) << "old content"; }

  void giveTo(uid_t owner, mode_t permissions) const {
    ASSERT_EQ(::chown(file_.c_str(), owner, kGroup), 0);
    ASSERT_EQ(::chmod(file_.c_str(), permissions), 0);
  }

  TemporaryFolder folder_;
  const fs::path file_ = folder_ / "file";
};

/// The result of a function in a process of another user, in a group; -1 if it fails.
template <typename Function>
int asUser(uid_t user, gid_t group, const Function& function) {
  const pid_t child = ::fork();
  if (child == 0) {
    const bool changed = ::setgroups(0, nullptr) == 0 && ::setgid(group) == 0 && ::setuid(user) == 0;
    ::_exit(changed ? function() : 99);
  }
  int status = 0;
  return ::waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(Ownership, OfAWriteProtectedFileIsNotChangedEvenByTheSuperuser) {
  ASSERT_EQ(::chmod(file_.c_str(), 0444), 0);
  EXPECT_EQ(checkFileCanBeWritten(file_), std::errc::permission_denied);
  const Written written = writeFileAtomically(file_, "new");
  EXPECT_EQ(written.error, std::errc::permission_denied);
  EXPECT_EQ(written.error.message(), "is write-protected");
  EXPECT_EQ(contentOf(file_), "old content");
  EXPECT_THAT(namesIn(folder_.path()), ElementsAre("file"));
}

TEST_F(Ownership, AndPermissionsOfAUsersFileStayWhenTheSuperuserSaves) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser may give files to others";
  giveTo(kPerson, 0600);
  const Written written = writeFileAtomically(file_, "new");
  EXPECT_FALSE(written.error);
  EXPECT_FALSE(written.inPlace);
  const struct stat status = statusOf(file_);
  EXPECT_EQ(status.st_uid, kPerson);
  EXPECT_EQ(status.st_gid, kGroup);
  EXPECT_EQ(status.st_mode & 07777, 0600u);
  EXPECT_EQ(contentOf(file_), "new");
}

TEST_F(Ownership, ThatCannotBeSetIsKeptByWritingInPlace) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser may become another user";
  giveTo(kPerson, 0660);
  ASSERT_EQ(::chown(folder_.path().c_str(), kOther, kGroup), 0);
  const ino_t before = statusOf(file_).st_ino;
  constexpr int inPlace = 7;
  EXPECT_EQ(asUser(kOther, kGroup,
                   [&] {
                     const Written written = writeFileAtomically(file_, "new");
                     return written.error ? 1 : written.inPlace && written.left.empty() ? inPlace : 0;
                   }),
            inPlace);
  EXPECT_EQ(contentOf(file_), "new");
  const struct stat status = statusOf(file_);
  EXPECT_EQ(status.st_uid, kPerson);
  EXPECT_EQ(status.st_mode & 07777, 0660u);
  EXPECT_EQ(status.st_ino, before);
  EXPECT_THAT(namesIn(folder_.path()), ElementsAre("file"));
}

TEST_F(Ownership, OfALinkInASharedFolderIsRespectedAsTheSystemDoes) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser may become another user";
  std::ifstream protectedLinks("/proc/sys/fs/protected_symlinks");
  int isOn = 0;
  if (!(protectedLinks >> isOn) || isOn == 0) GTEST_SKIP() << "this system does not protect links";
  // As in /tmp: somebody creates a link where another user is going to write.
  const fs::path shared = folder_ / "shared", victim = folder_ / "victim";
  fs::create_directory(shared);
  ASSERT_EQ(::chmod(folder_.path().c_str(), 0777), 0);
  ASSERT_EQ(::chmod(shared.c_str(), 01777), 0);
  fs::create_symlink(victim, shared / "link");
  ASSERT_EQ(::lchown((shared / "link").c_str(), kPerson, kGroup), 0);
  EXPECT_EQ(asUser(kOther, kGroup,
                   [&] {
                     const auto error = writeFileAtomically(shared / "link", "new").error;
                     return error == std::errc::permission_denied ? 7 : 0;
                   }),
            7);
  EXPECT_FALSE(fs::exists(victim));
}

TEST_F(Ownership, OfTheGrowingFileIsPrivateUntilItIsComplete) {
  const mode_t umaskBefore = ::umask(0022);
  GrowingFile file;
  ASSERT_FALSE(file.open(folder_ / "new"));
  EXPECT_EQ(statusOf(file.partial()).st_mode & 07777, 0600u);
  ASSERT_FALSE(file.finish());
  ::umask(umaskBefore);
  EXPECT_EQ(statusOf(folder_ / "new").st_mode & 07777, 0644u);
}

TEST_F(Ownership, OfAnotherHardLinkKeepsTheOldContent) {
  fs::create_hard_link(file_, folder_ / "other");
  EXPECT_FALSE(writeFileAtomically(file_, "new").error);
  EXPECT_EQ(contentOf(file_), "new");
  EXPECT_EQ(contentOf(folder_ / "other"), "old content");
}

}  // namespace
}  // namespace quorvane
