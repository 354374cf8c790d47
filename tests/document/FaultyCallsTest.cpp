#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <fstream>

#include "CallFaults.h"
#include "DocumentSupport.h"
#include "document/AtomicFile.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

/// A folder with a file that was written by an earlier save.
class FaultyCalls : public testing::Test {
 protected:
  FaultyCalls() { std::ofstream(file_) << "old"; }

  Written save() { return writeFileAtomically(file_, "new"); }
  void expectOnlyTheFile() { EXPECT_THAT(namesIn(folder_.path()), ElementsAre("file")); }

  TemporaryFolder folder_;
  const fs::path file_ = folder_ / "file";
};

TEST_F(FaultyCalls, SaveIsSynchronisedBeforeTheRenameAndItsFolderAfterwards) {
  ASSERT_EQ(::chmod(file_.c_str(), 0644), 0);
  CallFaults faults;
  EXPECT_FALSE(save().error);
  EXPECT_THAT(faults.calls, ElementsAre("write", "fchmod", "fsync file", "rename", "fsync folder"));
}

TEST_F(FaultyCalls, SaveSucceedsOnAFileSystemWithoutFsyncOrModes) {
  for (const int error : {EPERM, EINVAL, ENOTSUP}) {
    ASSERT_EQ(::chmod(file_.c_str(), 0644), 0);
    CallFaults faults;
    faults.fsyncFails = faults.fchmodFails = error;
    EXPECT_FALSE(save().error) << error;
    EXPECT_EQ(contentOf(file_), "new");
    expectOnlyTheFile();
  }
}

TEST_F(FaultyCalls, FailureToSynchroniseTheContentLeavesTheOldFile) {
  CallFaults faults;
  faults.fsyncFails = EIO;
  EXPECT_EQ(save().error, std::errc::io_error);
  EXPECT_EQ(contentOf(file_), "old");
  expectOnlyTheFile();
}

TEST_F(FaultyCalls, FailureToRenameLeavesTheOldFile) {
  CallFaults faults;
  faults.renameFails = EACCES;
  EXPECT_EQ(save().error, std::errc::permission_denied);
  EXPECT_EQ(contentOf(file_), "old");
  expectOnlyTheFile();
}

TEST_F(FaultyCalls, LinkThatTheSystemDoesNotFollowIsNotFollowedHereEither) {
  fs::create_symlink(folder_ / "elsewhere", folder_ / "link");
  CallFaults faults;
  faults.statFails = EACCES;
  EXPECT_EQ(writeFileAtomically(folder_ / "link", "new").error, std::errc::permission_denied);
  EXPECT_EQ(checkFileCanBeWritten(folder_ / "link"), std::errc::permission_denied);
  faults.statFails = 0;
  EXPECT_THAT(namesIn(folder_.path()), ElementsAre("file", "link"));
}

TEST_F(FaultyCalls, WriteThatWritesNothingFailsInsteadOfLooping) {
  CallFaults faults;
  faults.writeGives = 0;
  EXPECT_EQ(save().error, std::errc::io_error);
  EXPECT_EQ(writeFileAtomically("/dev/null", "new").error, std::errc::io_error);
  faults.writeGives = -1;
  EXPECT_EQ(contentOf(file_), "old");
  expectOnlyTheFile();
}

}  // namespace
}  // namespace quorvane
