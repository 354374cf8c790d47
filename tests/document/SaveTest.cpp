#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "DocumentSupport.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::unique_ptr<LatticeModel> sampleModel() {
  auto model = freshModel();
  EXPECT_EQ(readDocument(*model, joined(sampleLines())).status, OpenStatus::kOpened);
  return model;
}

TEST(Save, WritesTheDocumentAndNothingElse) {
  const TemporaryFolder folder;
  const SaveResult result = saveDocument(*sampleModel(), folder / "system.quorvane");
  EXPECT_TRUE(result.saved);
  EXPECT_THAT(result.reason, IsEmpty());
  EXPECT_EQ(contentOf(folder / "system.quorvane"), joined(sampleLines()));
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("system.quorvane"));
}

TEST(Save, ChangesNothingInTheModel) {
  const TemporaryFolder folder;
  const auto model = sampleModel();
  const std::string before = stateOf(*model);
  saveDocument(*model, folder / "system.quorvane");
  EXPECT_EQ(stateOf(*model), before);
}

TEST(Save, FailsOnANameOutsideAsciiAndLeavesTheOldFile) {
  const TemporaryFolder folder;
  std::ofstream(folder / "system.quorvane") << "old";
  const auto model = sampleModel();
  model->setPixelName(1, "Gr\xc3\xbcn");
  const SaveResult result = saveDocument(*model, folder / "system.quorvane");
  EXPECT_FALSE(result.saved);
  EXPECT_THAT(result.reason, HasSubstr("line 19"));
  EXPECT_EQ(contentOf(folder / "system.quorvane"), "old");
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("system.quorvane"));
}

TEST(Save, FailsOnARuleNameOutsideAscii) {
  const TemporaryFolder folder;
  const auto model = sampleModel();
  model->setRuleName(2, "\x80");
  EXPECT_FALSE(saveDocument(*model, folder / "system.quorvane").saved);
  EXPECT_THAT(namesIn(folder.path()), IsEmpty());
}

TEST(Save, AcceptsEveryAsciiCharacterInAName) {
  const TemporaryFolder folder;
  const auto model = sampleModel();
  std::string name;
  for (int c = 0; c < 128; ++c)
    if (c != '\n') name.push_back(static_cast<char>(c));
  model->setPixelName(0, name);
  ASSERT_TRUE(saveDocument(*model, folder / "system.quorvane").saved);
  const auto again = freshModel();
  EXPECT_EQ(openDocument(*again, folder / "system.quorvane").status, OpenStatus::kOpened);
  EXPECT_EQ(again->getPixelName(0), name);
}

TEST(Save, FailsWhereTheFileCannotBeWritten) {
  const TemporaryFolder folder;
  std::ofstream(folder / "file") << "old";
  const auto model = sampleModel();
  for (const char* name : {"missing/system.quorvane", "file/system.quorvane", "."}) {
    const SaveResult result = saveDocument(*model, folder / name);
    EXPECT_FALSE(result.saved) << name;
    EXPECT_FALSE(result.reason.empty()) << name;
  }
  EXPECT_EQ(contentOf(folder / "file"), "old");
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("file"));
}

TEST(Save, WorksWhileTheModelRuns) {
  using Clock = std::chrono::steady_clock;
  const TemporaryFolder folder;
  const auto model = freshModel();
  model->initializeLatticeModel(3, 60, 50);
  model->makeNewRule("Flip", kReversibleFlip, -1, -1);
  model->setRuleParam(0, 1.0);
  model->setSimulationSpeed(1000000000);
  model->runLatticeModelInBackground();
  constexpr int saves = 20;
  std::string first;
  int different = 0;
  for (int k = 0; k < saves; ++k) {
    const auto sweeps = model->sweepsDone();
    const auto deadline = Clock::now() + std::chrono::seconds(60);
    while (model->sweepsDone() == sweeps && Clock::now() < deadline) std::this_thread::yield();
    ASSERT_GT(model->sweepsDone(), sweeps);
    ASSERT_TRUE(saveDocument(*model, folder / "system.quorvane").saved);
    const std::string text = contentOf(folder / "system.quorvane");
    const auto again = freshModel();
    ASSERT_EQ(readDocument(*again, text).status, OpenStatus::kOpened);
    if (k == 0) first = text;
    different += text != first ? 1 : 0;
  }
  EXPECT_EQ(model->varMyState, kRunning);
  model->endRunLoops();
  EXPECT_GT(different, saves / 2);
}

}  // namespace
}  // namespace quorvane
