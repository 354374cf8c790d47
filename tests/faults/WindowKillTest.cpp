#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <random>

#include "DocumentSupport.h"
#include "Faults.h"
#include "Process.h"
#include "SharedPlan.h"
#include "Waiting.h"
#include "document/ModelDocument.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

/// True if the text is a whole document and nothing follows it.
bool isADocument(const std::string& text) {
  const auto model = freshModel();
  return readDocument(*model, text).status == OpenStatus::kOpened && writeDocument(*model) == text;
}

/// Holds a window at a moment when a file that it saves grows.
bool holdWhileItSaves(const Process& window, const fs::path& folder) {
  return waitUntil([&] {
    window.hold();
    if (!partialFilesIn(folder).empty()) return true;
    window.signal(SIGCONT);
    return false;
  });
}

TEST(WindowKilled, WhileItSavesLeavesAWholeDocumentAndTheNextSaveRemovesPartialFiles) {
  constexpr int rounds = 50;
  const TemporaryFolder folder;
  const fs::path saved = folder / "saved.quorvane";
  std::mt19937 random(4711);
  std::uniform_int_distribution<int> moment(0, 20'000);
  int numInTheMiddle = 0;
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE(round);
    const std::string before = contentOf(saved);
    Process window(SAVING_WINDOW, {EXAMPLE, saved});
    // Its first save shows that it has begun.
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (contentOf(saved) == before) {
      ASSERT_FALSE(window.waitFor(std::chrono::milliseconds(2))) << window.errors();
      ASSERT_LT(std::chrono::steady_clock::now(), deadline) << "nothing is saved";
    }
    EXPECT_FALSE(window.waitFor(std::chrono::microseconds(moment(random)))) << window.errors();
    if (round % 2 == 1) {
      EXPECT_TRUE(holdWhileItSaves(window, folder.path()));
    }
    window.kill();
    EXPECT_EQ(window.wait().status, -SIGKILL);
    EXPECT_TRUE(isADocument(contentOf(saved)));
    EXPECT_LE(partialFilesIn(folder.path()).size(), 1u) << "the last window's own, at most";
    numInTheMiddle += partialFilesIn(folder.path()).empty() ? 0 : 1;
  }
  std::printf("%d windows killed, %d of them while a file grew\n", rounds, numInTheMiddle);
  EXPECT_GE(numInTheMiddle, rounds / 2);
  EXPECT_TRUE(saveDocument(*freshModel(), saved).saved);
  EXPECT_THAT(namesIn(folder.path()), testing::ElementsAre("saved.quorvane"));
}

}  // namespace
}  // namespace quorvane
