#include <QTemporaryDir>

#include "PrintText.h"
#include "ProgramRun.h"

namespace quorvane {
namespace {

struct Sweeps {
  const char* document;
  const char* way;  ///< of the window: by the run "loop", by "calls" of the model, by the "keys" of One Sweep
  const char* count;
};

void PrintTo(const Sweeps& sweeps, std::ostream* out) {
  *out << sweeps.document << ", " << sweeps.count << " by " << sweeps.way;
}

/// Each side is a process of its own, because a process has one sequence of draws.
class SameBytes : public ::testing::TestWithParam<Sweeps> {
 protected:
  void SetUp() override { ASSERT_TRUE(folder_.isValid()); }

  QTemporaryDir folder_;
};

TEST_P(SameBytes, FromTheWindowAndFromTheHeadlessRunner) {
  const auto [document, way, count] = GetParam();
  const QString opened = QString(EXAMPLES) + "/" + document + ".quorvane";
  const QString byWindow = folder_.filePath("window.quorvane");
  const QString byRunner = folder_.filePath("runner.quorvane");
  ASSERT_EQ(runProgram(WINDOW_SESSION, {opened, byWindow, way, count}).status, 0);
  ASSERT_EQ(runProgram(BATCH, {opened, "--sweeps", count, "--output", byRunner}).status, 0);
  EXPECT_NE(contentOf(byRunner), contentOf(opened));
  EXPECT_EQ(contentOf(byWindow), contentOf(byRunner));
}

INSTANTIATE_TEST_SUITE_P(
    Examples, SameBytes,
    ::testing::Values(Sweeps{"phase-separation", "loop", "1"}, Sweeps{"phase-separation", "calls", "50"},
                      Sweeps{"facilitated-flips", "loop", "4"}, Sweeps{"facilitated-flips", "calls", "50"},
                      Sweeps{"phase-separation", "keys", "12"}, Sweeps{"facilitated-flips", "keys", "50"},
                      Sweeps{"growth-from-a-seed", "loop", "3"},
                      Sweeps{"growth-from-a-seed", "calls", "50"}));

}  // namespace
}  // namespace quorvane
