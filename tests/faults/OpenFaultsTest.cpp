#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "DocumentSupport.h"
#include "Faults.h"
#include "document/ModelDocument.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;

/// Opens a document in a model that already has another system.
class OpenUnderFaults : public testing::Test {
 protected:
  OpenUnderFaults() {
    const std::string longName(40, 'n');
    put(folder_ / "file", joined(sampleWith(kFirstType, longName)));
    put(folder_ / "neighbour", "of others");
    before_ = stateOf(*modelBefore());
    const auto model = modelBefore();
    openDocument(*model, folder_ / "file");
    after_ = stateOf(*model);
  }

  static std::unique_ptr<LatticeModel> modelBefore() {
    restartRandomNumbers();
    auto model = freshModel();
    readDocument(*model, "3\n2\n2\n0\n1\n0\n1\n1\n0\nBefore\n0\n-1\n");
    return model;
  }

  void open(bool mustSucceed) {
    const auto model = modelBefore();
    const fs::path file = folder_ / "file";
    OpenResult result;
    setFaultPlan(&plan_);
    try {
      result = openDocument(*model, file);
    } catch (...) {
      setFaultPlan(nullptr);
      FAIL() << "opening throws";
    }
    setFaultPlan(nullptr);
    const bool opened = result.status == OpenStatus::kOpened;
    EXPECT_EQ(stateOf(*model), opened ? after_ : before_);
    EXPECT_EQ(filesIn(folder_.path()), files_);
    EXPECT_EQ(opened, result.reason.empty());
    EXPECT_TRUE(opened || result.status == OpenStatus::kUnreadable);
    EXPECT_THAT(result.reason, Not(HasSubstr("std::")));
    EXPECT_THAT(result.reason, Not(HasSubstr("\n")));
    EXPECT_TRUE(opened || (plan_.failed > 0 && !mustSucceed)) << result.reason;
  }

  int openWithEveryCallFailing(const std::vector<Fault>& faults, bool mustSucceed) {
    int numFailed = 0;
    for (const Fault& fault : faults) {
      numFailed += forEveryCall(plan_, fs::canonical(folder_.path()), fault, [&](int number) {
        SCOPED_TRACE(testing::Message() << fault << ", number " << number);
        open(mustSucceed);
      });
      if (HasFailure()) break;
    }
    return numFailed;
  }

  const TemporaryFolder folder_;
  FaultPlan plan_;
  std::string before_, after_;
  Files files_ = {};
};

TEST_F(OpenUnderFaults, LeavesTheWholeOldOrTheWholeNewSystem) {
  files_ = filesIn(folder_.path());
  const int numFailed = openWithEveryCallFailing(harmfulFaults(), false);
  std::printf("%d calls failed\n", numFailed);
  EXPECT_GT(numFailed, 50);
}

TEST_F(OpenUnderFaults, SucceedsIfACallIsInterruptedOrReadsLess) {
  files_ = filesIn(folder_.path());
  const int numFailed = openWithEveryCallFailing(harmlessFaults(), true);
  std::printf("%d calls failed\n", numFailed);
  EXPECT_GT(numFailed, 5);
}

}  // namespace
}  // namespace quorvane
