#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "DocumentSupport.h"
#include "Faults.h"
#include "Process.h"
#include "SharedPlan.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const std::vector<std::string> kTargets = {"out.quorvane", "out.csv", "out.png"};
constexpr const char* kFrames = "frames";

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

/// A run that writes every kind of result over older files.
class RunUnderFaults : public testing::Test {
 protected:
  RunUnderFaults() {
    const TemporaryFolder folder;
    prepare(folder.path());
    EXPECT_EQ(quorvane::run(QUORVANE_BATCH, argumentsFor(folder.path())).status, 0);
    new_ = filesIn(folder.path());
    EXPECT_EQ(new_.size(), 9u);
  }

  void prepare(const fs::path& folder) const {
    for (const auto& [name, content] : old_) put(folder / name, content);
  }
  static std::vector<std::string> argumentsFor(const fs::path& folder) {
    return {
        folder / "in.quorvane", "--sweeps",         "2",         "--output",         folder / "out.quorvane",
        "--populations",        folder / "out.csv", "--picture", folder / "out.png", "--frames",
        folder / kFrames,       "--scale",          "1"};
  }

  void run(const Fault& fault, int number, bool mustSucceed) {
    const TemporaryFolder temporary;
    const fs::path folder = fs::canonical(temporary.path());
    prepare(folder);
    ++numRuns_;
    set(*plan_, folder, fault, number);
    const auto [status, out, errors] = quorvane::run(QUORVANE_BATCH, argumentsFor(folder));
    const std::vector<std::string> lines = linesOf(errors);
    SCOPED_TRACE(errors);
    const Files after = filesIn(folder);

    ASSERT_TRUE(status == 0 || (status == 1 && plan_->failed > 0)) << status;
    EXPECT_TRUE(status == 0 || !mustSucceed);
    EXPECT_EQ(status == 0, after == new_);
    EXPECT_EQ(status == 0, lines.empty());
    EXPECT_LE(lines.size(), fault.forEver ? 4u : 1u);
    EXPECT_THAT(lines, Each(AllOf(StartsWith("quorvane-batch: "), Not(HasSubstr("std::")))));
    expectOldOrNew(after);
    if (fault.call != Call::kAllocate) expectEachLossToBeTold(after, lines);
    if (fault.call != Call::kUnlink && fault.call != Call::kAny)
      expectNothingLeft(folder, fault, lines);
    else
      numLeft_ += partialFilesIn(folder).size();
  }

  void expectOldOrNew(const Files& after) const {
    for (const auto& [name, content] : old_)
      EXPECT_TRUE(after.contains(name) && (after.at(name) == content || after.at(name) == new_.at(name)))
          << name;
    for (const auto& [name, content] : after)
      EXPECT_TRUE(old_.contains(name) || (new_.contains(name) && new_.at(name) == content)) << name;
  }

  /// If the run was made, each result that is missing is reported.
  void expectEachLossToBeTold(const Files& after, const std::vector<std::string>& lines) const {
    const auto isNew = [&](const std::string& name) { return after.at(name) == new_.at(name); };
    if (std::none_of(kTargets.begin(), kTargets.end(), isNew)) return;
    const auto all = testing::PrintToString(lines);
    for (const std::string& name : kTargets) EXPECT_TRUE(isNew(name) || all.find(name) != std::string::npos);
    for (const auto& [name, content] : new_)
      EXPECT_TRUE(after.contains(name) || all.find(kFrames) != std::string::npos) << name;
  }

  /// Only rows may stay, which a line reports and the next run that writes them removes.
  void expectNothingLeft(const fs::path& folder, const Fault& fault, const std::vector<std::string>& lines) {
    for (const std::string& name : partialFilesIn(folder)) {
      // A line that names the file needs memory too.
      if (fault.call != Call::kAllocate || !fault.forEver) {
        EXPECT_THAT(lines, testing::Contains(AllOf(HasSubstr("the rows so far are in"), HasSubstr(name))));
      }
      EXPECT_THAT(new_.at("out.csv"), StartsWith(contentOf(folder / name)));
      ++numLeft_;
    }
  }

  int runWithEveryCallFailing(const std::vector<Fault>& faults, bool mustSucceed) {
    int numFailed = 0;
    for (const Fault& fault : faults) {
      // Persistent failure of allocations is nearly the same from each call on.
      const int step = fault.call == Call::kAllocate && fault.forEver ? 10 : 1;
      numFailed += forEveryCall(
          *plan_, "/", fault,
          [&](int number) {
            SCOPED_TRACE(testing::Message() << fault << ", number " << number);
            run(fault, number, mustSucceed);
          },
          step);
    }
    return numFailed;
  }

  const Files old_ = {{"in.quorvane", joined(sampleLines())},
                      {"neighbour", "of others"},
                      {"out.quorvane", "old document"},
                      {"out.csv", "old table"},
                      {"out.png", "old picture"}};
  Files new_;
  SharedPlan plan_;
  std::size_t numRuns_ = 0, numLeft_ = 0;
};

/// One error for each call; the save tests try all errors.
std::vector<Fault> oneErrorOfEachCall(bool forEver) {
  std::vector<Fault> faults;
  for (const Fault& fault : harmfulFaults())
    if (fault.forEver == forEver && (faults.empty() || faults.back().call != fault.call))
      faults.push_back(fault);
  return faults;
}

TEST_F(RunUnderFaults, WritesWhatCanBeWrittenAndReportsTheRest) {
  const int numFailed = runWithEveryCallFailing(oneErrorOfEachCall(false), false);
  std::printf("%zu runs, %d calls failed, %zu files stayed\n", numRuns_, numFailed, numLeft_);
  EXPECT_GT(numFailed, 500);
}

TEST_F(RunUnderFaults, ReportsEachLossIfAllLaterCallsFail) {
  const int numFailed = runWithEveryCallFailing(oneErrorOfEachCall(true), false);
  std::printf("%zu runs, %d calls failed, %zu files stayed\n", numRuns_, numFailed, numLeft_);
  EXPECT_GT(numFailed, 500);
}

TEST_F(RunUnderFaults, SucceedsIfACallIsInterruptedOrNotSupported) {
  const int numFailed = runWithEveryCallFailing(harmlessFaults(), true);
  std::printf("%zu runs, %d calls failed\n", numRuns_, numFailed);
  EXPECT_GT(numFailed, 10);
}

}  // namespace
}  // namespace quorvane
