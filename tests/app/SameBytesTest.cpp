#include <QTemporaryDir>

#include "PrintText.h"
#include "ProgramRun.h"

namespace quorvane {
namespace {

struct Sweeps {
  const char* document;
  const char* way;  ///< of the window: by the run "loop", by "calls" of the model, by the "keys" of One
                    ///< Sweep, "kept-" meanwhile
  const char* count;
};

void PrintTo(const Sweeps& sweeps, std::ostream* out) {
  *out << sweeps.document << ", " << sweeps.count << " by " << sweeps.way;
}

/// Each side is a separate process, because a process has only one sequence of draws.
class SameBytes : public ::testing::TestWithParam<Sweeps> {
 protected:
  void SetUp() override { ASSERT_TRUE(folder_.isValid()); }

  QTemporaryDir folder_;
};

class ChosenBefore : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(folder_.isValid()); }

  static void write(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
  }

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

TEST_F(ChosenBefore, PreviewsOfOtherDocumentsDoNotChangeTheDrawsOfTheOpenedOne) {
  const auto example = [](const char* name) { return QString(EXAMPLES) + "/" + name + ".quorvane"; };
  const QString opened = example("phase-separation");
  const QString cut = folder_.filePath("cut.quorvane"), broken = folder_.filePath("broken.quorvane");
  write(cut, contentOf(opened).left(5000));
  write(broken, "300\n2\n2\n");
  const QString byWindow = folder_.filePath("window.quorvane");
  const QString byRunner = folder_.filePath("runner.quorvane");
  ASSERT_EQ(runProgram(WINDOW_SESSION, {opened, byWindow, "calls", "20", example("forest-fire"), cut, broken,
                                        example("voters"), opened})
                .status,
            0);
  ASSERT_EQ(runProgram(BATCH, {opened, "--sweeps", "20", "--output", byRunner}).status, 0);
  EXPECT_NE(contentOf(byRunner), contentOf(opened));
  EXPECT_EQ(contentOf(byWindow), contentOf(byRunner));
}

INSTANTIATE_TEST_SUITE_P(
    Examples, SameBytes,
    ::testing::Values(Sweeps{"phase-separation", "loop", "1"}, Sweeps{"phase-separation", "calls", "50"},
                      Sweeps{"facilitated-flips", "loop", "4"}, Sweeps{"facilitated-flips", "calls", "50"},
                      Sweeps{"phase-separation", "keys", "12"}, Sweeps{"facilitated-flips", "keys", "50"},
                      Sweeps{"phase-separation", "kept-loop", "1"},
                      Sweeps{"facilitated-flips", "kept-keys", "20"},
                      Sweeps{"growth-from-a-seed", "loop", "3"},
                      Sweeps{"growth-from-a-seed", "calls", "50"}));

}  // namespace
}  // namespace quorvane
