#include <gtest/gtest.h>

#include <filesystem>

#include "DocumentSupport.h"
#include "Waiting.h"

// Also run under the thread sanitizer, which must report nothing.
namespace quorvane {
namespace {

class SharedUseOfDocuments : public testing::Test {
 protected:
  SharedUseOfDocuments() { model_->setSimulationSpeed(kFastest); }
  ~SharedUseOfDocuments() override { model_->endRunLoops(); }

  static constexpr int kFastest = 1'000'000'000;

  static std::string example(const std::string& name) {
    return contentOf(std::filesystem::path(QUORVANE_EXAMPLES) / (name + ".quorvane"));
  }

  const std::unique_ptr<LatticeModel> model_ = freshModel();
};

TEST_F(SharedUseOfDocuments, SavingDuringARunGivesAValidDocument) {
  ASSERT_EQ(readDocument(*model_, example("phase-separation")).status, OpenStatus::kOpened);
  model_->runLatticeModelInBackground();
  ASSERT_TRUE(waitUntil([&] { return model_->sweepsDone() > 0; }));
  const auto other = freshModel();
  const TemporaryFolder folder;
  for (int round = 0; round < 20; ++round) {
    ASSERT_TRUE(saveDocument(*model_, folder / "run.quorvane").saved);
    ASSERT_EQ(openDocument(*other, folder / "run.quorvane").status, OpenStatus::kOpened);
  }
}

// The window opens no document during a run. If another caller does, the last attempt of the interrupted
// sweep may still write a site, and nothing else.
TEST_F(SharedUseOfDocuments, OpeningDuringARunStopsItAndKeepsTheModelWhole) {
  for (int round = 0; round < 10; ++round) {
    const auto model = freshModel();
    model->initializeLatticeModel(kMaxPixelTypes, 40, 30);
    model->setSimulationSpeed(kFastest);
    model->makeNewRule("swap", kSwap, kAnyPixelType, kAnyPixelType);
    model->setRuleParam(0, 1.0);
    model->runLatticeModelInBackground();
    ASSERT_TRUE(waitUntil([&] { return model->sweepsDone() > 0; }));
    ASSERT_EQ(readDocument(*model, example("phase-separation")).status, OpenStatus::kOpened);
    EXPECT_EQ(model->varMyState, kStopped);
    model->endRunLoops();
    for (int i = 0; i < model->getIMax(); ++i)
      for (int j = 0; j < model->getJMax(); ++j) {
        ASSERT_GE(model->getSiteValue(i, j), 0);
        ASSERT_LT(model->getSiteValue(i, j), kMaxPixelTypes);
      }
  }
}

}  // namespace
}  // namespace quorvane
