#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <memory>
#include <utility>

#include "DocumentSupport.h"
#include "Faults.h"
#include "document/ModelDocument.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kTarget = "system.quorvane";
constexpr fs::perms kPermissions = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;

/// The content of the folder before a save.
struct Before {
  const char* name;
  Files files;
  const char* written = kTarget;
};
void PrintTo(const Before& before, std::ostream* out) { *out << before.name; }

void put(const fs::path& folder, const Files& files) {
  const std::string link = "link to ";
  for (const auto& [name, content] : files) {
    if (content.starts_with(link))
      fs::create_symlink(content.substr(link.size()), folder / name);
    else
      quorvane::put(folder / name, content);
  }
}

class SaveUnderFaults : public testing::TestWithParam<Before> {
 protected:
  SaveUnderFaults() { readDocument(*model_, document_); }

  /// One save in a folder of its own.
  void save(const Fault& fault, int number, bool mustSucceed) {
    const TemporaryFolder temporary;
    const fs::path folder = fs::canonical(temporary.path());
    const Files before = GetParam().files;
    put(folder, before);
    const fs::path written = folder / GetParam().written;
    if (fs::exists(written)) fs::permissions(written, kPermissions);
    const bool hasPermissions = fs::exists(written) && fault.call != Call::kMode;
    set(plan_, folder, fault, number);
    SaveResult result;
    const fs::path target = folder / kTarget;
    setFaultPlan(&plan_);
    try {
      result = saveDocument(*model_, target);
    } catch (...) {
      setFaultPlan(nullptr);
      FAIL() << "saving throws";
    }
    setFaultPlan(nullptr);

    const auto permissionsAfter = fs::status(written).permissions();
    const Files after = filesIn(folder);
    Files expected = before;
    if (result.saved) expected[GetParam().written] = document_;
    EXPECT_EQ(after, expected);
    EXPECT_TRUE(!hasPermissions || permissionsAfter == kPermissions);
    EXPECT_EQ(result.saved, result.reason.empty());
    EXPECT_THAT(result.reason, Not(HasSubstr("std::")));
    EXPECT_THAT(result.reason, Not(HasSubstr("\n")));
    EXPECT_THAT(result.note, IsEmpty());
    EXPECT_TRUE(result.saved || (plan_.failed > 0 && !mustSucceed)) << result.reason;
    // A file that cannot be removed has to stay.
    const bool canBeRemoved = fault.call != Call::kUnlink && fault.call != Call::kAny;
    EXPECT_TRUE(!canBeRemoved || partialFilesIn(folder).empty());
    expectTheNextSaveToTidyUp(target, folder);
  }

  /// The next save of another process removes what this one left.
  void expectTheNextSaveToTidyUp(const fs::path& target, const fs::path& folder) const {
    if (partialFilesIn(folder).empty()) return;
    EXPECT_TRUE(saveDocument(*model_, target).saved);
    EXPECT_THAT(partialFilesIn(folder), IsEmpty());
  }

  int saveWithEveryCallFailing(const std::vector<Fault>& faults, bool mustSucceed) {
    int numFailed = 0;
    for (const Fault& fault : faults) {
      numFailed += forEveryCall(plan_, "/", fault, [&](int number) {
        SCOPED_TRACE(testing::Message() << fault << ", number " << number);
        save(fault, number, mustSucceed);
      });
      if (HasFailure()) break;
    }
    return numFailed;
  }

  FaultPlan plan_;
  const std::string document_ = joined(sampleLines());
  const std::unique_ptr<LatticeModel> model_ = freshModel();
};

TEST_P(SaveUnderFaults, LeavesTheOldOrTheNewFileAndNothingElse) {
  const int numFailed = saveWithEveryCallFailing(harmfulFaults(), false);
  std::printf("%s: %d calls failed\n", GetParam().name, numFailed);
  EXPECT_GT(numFailed, 100);
}

TEST_P(SaveUnderFaults, SucceedsIfACallIsInterruptedOrNotSupported) {
  const int numFailed = saveWithEveryCallFailing(harmlessFaults(), true);
  std::printf("%s: %d calls failed\n", GetParam().name, numFailed);
  EXPECT_GT(numFailed, 10);
}

INSTANTIATE_TEST_SUITE_P(
    , SaveUnderFaults,
    testing::Values(Before{"NewFile", {{"neighbour", "of others"}}},
                    Before{"OldFile", {{kTarget, "old"}, {"neighbour", "of others"}}},
                    Before{"Link", {{kTarget, "link to linked"}, {"linked", "old"}}, "linked"},
                    Before{"LinkToNothing", {{kTarget, "link to linked"}}, "linked"}),
    [](const auto& before) { return before.param.name; });

}  // namespace
}  // namespace quorvane
