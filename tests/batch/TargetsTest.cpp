#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include "RunnerTest.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class Targets : public Runner {
 protected:
  using Arguments = std::vector<std::string>;

  void expectRefused(Arguments results, const std::string& line) const {
    results.insert(results.begin(), {document_, "--sweeps", kForever});
    const Finished finished = runBatchProgram(results);
    EXPECT_EQ(finished.status, 2);
    EXPECT_THAT(finished.out, IsEmpty());
    EXPECT_EQ(finished.err, "quorvane-batch: " + line + " (--help tells more)\n");
  }
};

TEST_F(Targets, OtherThanOutputMustNotBeTheDocumentUnderAnyName) {
  const std::string link = (folder_ / "link").string(), hard = (folder_ / "hard").string();
  fs::create_symlink(document_, link);
  fs::create_hard_link(document_, hard);
  for (const char* option : {"--picture", "--populations"})
    for (const std::string& name : {document_, link, hard})
      expectRefused({option, name},
                    named(name) + ": is the document itself, which only --output may replace");
  EXPECT_EQ(contentOf(document_), joined(sampleLines()));
  EXPECT_EQ(runBatchProgram({document_, "--sweeps", "0", "--output", link}).status, 0);
  EXPECT_TRUE(fs::is_symlink(link));
}

TEST_F(Targets, MustNotBeTheDocumentThatStandardInputIs) {
  const std::string command = std::string(QUORVANE_BATCH) + " - --sweeps 1 --picture " + document_ + " < " +
                              document_ + " 2> " + (folder_ / "err").string();
  EXPECT_NE(std::system(command.c_str()), 0);
  EXPECT_THAT(contentOf(folder_ / "err"), HasSubstr("is the document itself"));
  EXPECT_EQ(contentOf(document_), joined(sampleLines()));
}

TEST_F(Targets, AreTheSameThroughTheNamesOfStandardOutput) {
  for (const char* name : {"/dev/fd/1", "/dev/stdout", "/proc/self/fd/1"})
    expectRefused({"--output", "-", "--populations", name}, "standard output (-): is asked for twice");
  const std::string command = std::string(QUORVANE_BATCH) + " " + document_ +
                              " --sweeps 1 --output - --picture " + output_ + " > " + output_ + " 2> " +
                              (folder_ / "err").string();
  EXPECT_NE(std::system(command.c_str()), 0);
  EXPECT_THAT(contentOf(folder_ / "err"), HasSubstr("is asked for twice"));
}

TEST_F(Targets, AreTheSameThroughDanglingLinks) {
  const fs::path first = folder_ / "first", second = folder_ / "second";
  fs::create_symlink("missing", first);
  fs::create_symlink(folder_ / "missing", second);
  expectRefused({"--output", first, "--picture", second}, named(second) + ": is asked for twice");
  expectRefused({"--output", first, "--picture", folder_ / "missing"},
                named(folder_ / "missing") + ": is asked for twice");
}

TEST_F(Targets, AreTheSameThroughAnotherNameOfTheirFolder) {
  fs::create_directory(folder_ / "folder");
  fs::create_directory_symlink("folder", folder_ / "link");
  expectRefused({"--output", folder_ / "folder/new", "--picture", folder_ / "link/new"},
                named(folder_ / "link/new") + ": is asked for twice");
}

TEST_F(Targets, MustNotBeNamedLikeAFrameOrLikeTheFolderOfTheFrames) {
  const fs::path film = folder_ / "film";
  expectRefused({"--output", film / "frame-000002.png", "--frames", film},
                named(film / "frame-000002.png") + ": is asked for twice, it would be one of the frames");
  expectRefused({"--output", film, "--frames", film / "sub"},
                named(film) + ": is asked for as a file and as a folder for --frames");
  expectRefused({"--output", film, "--frames", film / ""}, named(film) + ": is asked for twice");
  EXPECT_THAT(namesIn(folder_.path()), ElementsAre("in.quorvane"));
}

TEST_F(Targets, MayBeInTheFolderOfTheFrames) {
  const fs::path film = folder_ / "film";
  fs::create_directory(film);
  EXPECT_EQ(runBatchProgram({document_, "--sweeps", "1", "--frames", film, "--output", film / "out"}).status,
            0);
  EXPECT_THAT(namesIn(film), ElementsAre("frame-000000.png", "frame-000001.png", "out"));
}

TEST_F(Targets, WithANameThatIsTooLongAreReportedBeforeTheRun) {
  const fs::path longer = folder_ / std::string(256, 'n');
  for (const char* option : {"--output", "--populations", "--picture", "--frames"})
    expectFailure({document_, "--sweeps", kForever, option, longer}, named(longer) + ": File name too long");
}

TEST_F(Targets, ThatAreWriteProtectedAreReportedBeforeTheRun) {
  put(output_, "old");
  ASSERT_EQ(::chmod(output_.c_str(), 0444), 0);
  expectFailure({document_, "--sweeps", kForever, "--output", output_},
                named(output_) + ": is write-protected");
  EXPECT_EQ(contentOf(output_), "old");
}

TEST_F(Targets, ThatCannotBeWrittenAreAllReportedBeforeTheRun) {
  const fs::path missing = folder_ / "missing/out";
  expectFailure({document_, "--sweeps", kForever, "--output", missing, "--picture", folder_.path()},
                named(missing) + ": No such file or directory\nquorvane-batch: " + named(folder_.path()) +
                    ": Is a directory");
}

TEST_F(Targets, ThatAreMountPointsAreReportedBeforeTheRun) {
  put(output_, "old");
  if (::mount(document_.c_str(), output_.c_str(), nullptr, MS_BIND, nullptr) != 0)
    GTEST_SKIP() << "this user may not mount";
  expectFailure({document_, "--sweeps", kForever, "--output", output_},
                named(output_) + ": is a mount point, so it cannot be replaced");
  EXPECT_EQ(::umount(output_.c_str()), 0);
}

}  // namespace
}  // namespace quorvane
