#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <fstream>
#include <future>

#include "DocumentSupport.h"
#include "document/GrowingFile.h"
#include "document/PartialFiles.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

/// The id of a process that has ended.
pid_t goneProcess() {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(0);
  ::waitpid(child, nullptr, 0);
  return child;
}

std::string partialOf(const std::string& name, pid_t process, const std::string& more = "") {
  return "." + name + ".quorvane-" + std::to_string(process) + more + ".partial";
}

TEST(PartialFiles, OfDeadProcessesAreRemovedForTheirTargetOnly) {
  const TemporaryFolder folder;
  const pid_t gone = goneProcess();
  const std::vector<std::string> others = {partialOf("other", gone), partialOf("file", ::getppid()),
                                           ".file.quorvane-x.partial", ".file.quorvane-.partial", "file"};
  for (const std::string& name : others) put(folder / name, "kept");
  for (const char* more : {"", "-1", "-12"}) put(folder / partialOf("file", gone, more), "left");
  sweepPartialFiles(folder / "file");
  EXPECT_THAT(namesIn(folder.path()), testing::UnorderedElementsAreArray(others));
}

TEST(PartialFiles, OfThisProcessAreRemovedUnlessTheyAreBeingWritten) {
  const TemporaryFolder folder;
  put(folder / partialOf("file", ::getpid()), "of another container");
  GrowingFile file;
  ASSERT_FALSE(file.open(folder / "file"));
  sweepPartialFiles(folder / "file");
  EXPECT_THAT(namesIn(folder.path()), ElementsAre(partialOf("file", ::getpid(), "-1")));
}

TEST(PartialFiles, AreNotLostToASweepAtTheMomentOfTheirCreation) {
  const TemporaryFolder folder;
  std::atomic<bool> done = false;
  auto sweeps = std::async(std::launch::async, [&] {
    while (!done) sweepPartialFiles(folder / "file");
  });
  int lost = 0;
  for (int time = 0; time < 500; ++time) {
    GrowingFile file;
    if (file.open(folder / "file") || file.append("text") || file.finish()) ++lost;
  }
  done = true;
  sweeps.get();
  EXPECT_EQ(lost, 0);
}

TEST(PartialFiles, AreRemovedByTheNextSaveOfTheDocument) {
  const TemporaryFolder folder;
  put(folder / partialOf("system.quorvane", goneProcess()), "half");
  EXPECT_FALSE(saveDocument(*freshModel(), folder / "missing/system.quorvane").saved);
  EXPECT_EQ(namesIn(folder.path()).size(), 1u);
  EXPECT_TRUE(saveDocument(*freshModel(), folder / "system.quorvane").saved);
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("system.quorvane"));
}

TEST(PartialFiles, OfATargetWithACutNameStay) {
  const TemporaryFolder folder;
  const std::string longName(250, 'n');
  const std::string partial = partialOf(longName.substr(0, 220), goneProcess());
  put(folder / partial, "of this target, or of another one");
  sweepPartialFiles(folder / longName);
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre(partial));
}

TEST(PartialFiles, HaveNamesThatBelongToOneTarget) {
  constexpr std::size_t longest = 255;
  for (const char* name :
       {".file.quorvane-12.partial", ".file.quorvane-12-3.partial", ".quorvane-12.partial"})
    EXPECT_TRUE(isPartialName(name, "file", longest)) << name;
  for (const char* name :
       {"file", "", ".file.quorvane-12.partialx", ".other.quorvane-12.partial", ".file.quorvane-.partial",
        ".file.quorvane--12.partial", ".file.quorvane-012.partial", ".file.quorvane-12-0.partial",
        ".file.quorvane-99999999999.partial", "../.file.quorvane-12.partial", ".file.quorvane-12-x.partial",
        "x/.file.quorvane-12.partial", ".file.quorvane-12.partial.quorvane-"})
    EXPECT_FALSE(isPartialName(name, "file", longest)) << name;
  const std::string longName(250, 'n');
  EXPECT_TRUE(isPartialName(partialName(longName, 0, longest), longName, longest));
  EXPECT_TRUE(isPartialName(partialName(longName, 7, longest), longName, longest));
}

}  // namespace
}  // namespace quorvane
