#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <optional>
#include <stdexcept>

#include "DocumentSupport.h"
#include "Faults.h"
#include "FileSystemModel.h"
#include "Process.h"
#include "SharedPlan.h"
#include "document/ModelDocument.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using Calls = std::vector<RecordedCall>;

constexpr const char* kExample = QUORVANE_EXAMPLES "/growth-from-a-seed.quorvane";

/// A file that is written: its former content, if it existed, and its new content.
struct Target {
  std::string path;
  std::optional<std::string> before;
  std::string after;
};

struct Found {
  std::size_t numDisks = 0;
  std::size_t neitherOldNorNew = 0;
  std::size_t notNewThoughSaid = 0;
};

Found loseThePowerAnywhere(const FileSystemModel& model, const Target& target) {
  Found found;
  for (std::size_t call = 0; call <= model.numCalls(); ++call) {
    found.numDisks += model.afterPowerLoss(call, [&](const Disk& disk) {
      const auto file = disk.find(target.path);
      const bool isNew = file != disk.end() && file->second == target.after;
      const bool isOld = file == disk.end() ? !target.before : file->second == target.before;
      if (!isNew && !isOld) ++found.neitherOldNorNew;
      if (!isNew && call > model.saidAt()) ++found.notNewThoughSaid;
    });
  }
  return found;
}

Calls withoutSync(const Calls& calls, bool ofFolders) {
  Calls kept;
  std::map<int, bool> isFolder;
  for (const RecordedCall& call : calls) {
    if (call.kind == RecordedCall::Kind::kOpen) isFolder[call.file] = call.isFolder;
    if (call.kind != RecordedCall::Kind::kSync || isFolder[call.file] != ofFolders) kept.push_back(call);
  }
  return kept;
}

class PowerLoss : public testing::Test {
 protected:
  PowerLoss() {
    const std::string record = elsewhere_ / "record";
    if (record.size() >= plan_->record.size()) throw std::runtime_error("the folder's name is too long");
    std::copy(record.begin(), record.end(), plan_->record.begin());
  }

  Disk disk() const {
    Disk files;
    for (const auto& [name, content] : filesIn(folder_)) files[folder_ / name] = content;
    return files;
  }
  Calls calls() const { return readRecord(elsewhere_ / "record"); }
  Target targetOf(const Disk& before, const std::string& name) const {
    const std::string path = folder_ / name;
    return {path, before.contains(path) ? std::optional(before.at(path)) : std::nullopt, contentOf(path)};
  }

  /// Saves over an older file as the window does, with a given fault.
  Calls save(const Fault& fault = {Call::kAny, 0}, int number = 0) {
    const auto model = freshModel();
    readDocument(*model, contentOf(kExample));
    set(*plan_, folder_, fault, number);
    setFaultPlan(&*plan_);
    const bool saved = saveDocument(*model, saved_).saved;
    recordThatItIsSaid();
    setFaultPlan(nullptr);
    EXPECT_TRUE(saved);
    return calls();
  }

  void runAndLoseThePower(const std::vector<std::string>& options, const std::vector<std::string>& names) {
    put(folder_ / "in.quorvane", contentOf(kExample));
    const Disk before = disk();
    set(*plan_, folder_, {Call::kAny, 0}, 0);
    std::vector<std::string> arguments = {folder_ / "in.quorvane", "--sweeps", "1"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    ASSERT_EQ(run(QUORVANE_BATCH, arguments).status, 0);
    Calls recorded = calls();
    recorded.push_back({RecordedCall::Kind::kSaid});
    const FileSystemModel model(before, recorded);
    for (const std::string& name : names) {
      SCOPED_TRACE(name);
      expectSafe(loseThePowerAnywhere(model, targetOf(before, name)));
    }
  }

  static void expectSafe(const Found& found) {
    std::printf("%zu disks\n", found.numDisks);
    EXPECT_GT(found.numDisks, 50u);
    EXPECT_EQ(found.neitherOldNorNew, 0u);
    EXPECT_EQ(found.notNewThoughSaid, 0u);
  }

  const TemporaryFolder temporary_, elsewhere_;
  const fs::path folder_ = fs::canonical(temporary_.path());
  const fs::path saved_ = folder_ / "system.quorvane";
  const SharedPlan plan_;
};

TEST_F(PowerLoss, LeavesTheOldOrTheNewFileAndTheNewOneOnceASaveHasReturned) {
  put(saved_, "old");
  const Disk before = disk();
  const Calls calls = save();
  expectSafe(loseThePowerAnywhere({before, calls}, targetOf(before, "system.quorvane")));
}

TEST_F(PowerLoss, LeavesANewFileWholeOrNotAtAll) {
  const Calls calls = save();
  expectSafe(loseThePowerAnywhere({{}, calls}, targetOf({}, "system.quorvane")));
}

TEST_F(PowerLoss, IsDetectedToLoseASaveWithoutFsync) {
  put(saved_, "old");
  const Disk before = disk();
  const Calls calls = save();
  const Target target = targetOf(before, "system.quorvane");
  const Found file = loseThePowerAnywhere({before, withoutSync(calls, false)}, target);
  EXPECT_GT(file.neitherOldNorNew, 0u);
  const Found folder = loseThePowerAnywhere({before, withoutSync(calls, true)}, target);
  EXPECT_EQ(folder.neitherOldNorNew, 0u);
  EXPECT_GT(folder.notNewThoughSaid, 0u);
}

/// Only the superuser can create a file of another user, whose owner a new file could not have.
TEST_F(PowerLoss, DuringASaveInPlaceLeavesTheTextInOneOfTwoFiles) {
  if (::geteuid() != 0) GTEST_SKIP() << "needs a file of another user";
  put(saved_, "old");
  ASSERT_EQ(::chown(saved_.c_str(), 12345, 12345), 0);
  const Disk before = disk();
  const Calls calls = save({Call::kOwner, EPERM, true}, 1);
  const Target target = targetOf(before, "system.quorvane");
  const FileSystemModel model(before, calls);
  std::size_t numDisks = 0;
  for (std::size_t call = 0; call <= model.numCalls(); ++call) {
    numDisks += model.afterPowerLoss(call, [&](const Disk& disk) {
      const bool isOld = disk.at(target.path) == target.before;
      const bool isSomewhere = std::any_of(disk.begin(), disk.end(),
                                           [&](const auto& file) { return file.second == target.after; });
      EXPECT_TRUE(isOld || isSomewhere) << "before call " << call;
      EXPECT_TRUE(call <= model.saidAt() || disk.at(target.path) == target.after);
    });
  }
  std::printf("%zu disks\n", numDisks);
  EXPECT_GT(numDisks, 50u);
}

TEST_F(PowerLoss, LeavesEveryResultOfARunOldOrNewAndNewOnceItHasEnded) {
  for (const char* name : {"out.quorvane", "out.csv", "out.png"}) put(folder_ / name, "old");
  runAndLoseThePower({"--output", folder_ / "out.quorvane", "--populations", folder_ / "out.csv", "--picture",
                      folder_ / "out.png"},
                     {"out.quorvane", "out.csv", "out.png"});
}

TEST_F(PowerLoss, LeavesFramesWholeOrMissingAndAllOfThemOnceARunHasEnded) {
  runAndLoseThePower({"--frames", folder_ / "films/frames"},
                     {"films/frames/frame-000000.png", "films/frames/frame-000001.png"});
}

}  // namespace
}  // namespace quorvane
