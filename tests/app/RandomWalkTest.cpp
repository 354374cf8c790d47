#include <QTemporaryDir>

#include "FilePanel.h"
#include "ProgramRun.h"
#include "RandomUser.h"
#include "WindowInvariants.h"
#include "WindowTest.h"
#include "document/ModelDocument.h"

namespace quorvane {
namespace {

struct Walk {
  unsigned seed;
  const char* start;  ///< name of an example document, or empty for Initialise
};

void PrintTo(const Walk& walk, std::ostream* out) {
  *out << "seed " << walk.seed << " from " << (*walk.start ? walk.start : "an empty window");
}

class RandomWalk : public WindowTest, public ::testing::WithParamInterface<Walk> {
 protected:
  static constexpr int kSteps = 700;

  void begin() {
    if (*GetParam().start) {
      const QString document = QString(EXAMPLES) + "/" + GetParam().start + ".quorvane";
      ASSERT_TRUE(gui::choosePath(get<QPushButton>("buttonOpenSystem"), document));
    } else {
      key("sliderWidthHeight", Qt::Key_Left, 70);
      click("buttonInitialiseModel");
    }
    key("sliderSimulationSpeed", Qt::Key_End);
  }

  void walk() {
    RandomUser user(*window_, GetParam().seed);
    QStringList trail;
    for (int step = 0; step < kSteps && !HasFailure(); ++step) {
      trail += user.act();
      ASSERT_EQ(disagreements(*window_), QStringList())
          << "step " << step << " after " << trail.mid(qMax(0, trail.size() - 6)).join("; ").toStdString();
    }
    user.waitForMnemonics();
  }

  /// What the walk ends in is a system like any other: saved, it opens as itself.
  void expectThatTheSystemCanBeSavedAndOpened() {
    if (enabled("buttonStopModel")) click("buttonStopModel");
    model().endRunLoops();
    QTemporaryDir folder;
    const QString path = folder.filePath("walked.quorvane");
    ASSERT_TRUE(gui::choosePath(get<QPushButton>("buttonSaveSystem"), path));
    const auto other = std::make_unique<LatticeModel>();
    other->awakeFromNib();
    const OpenResult opened = openDocument(*other, path.toStdString());
    EXPECT_EQ(opened.status, OpenStatus::kOpened) << opened.message;
    EXPECT_EQ(QByteArray::fromStdString(writeDocument(*other)), contentOf(path));
  }
};

TEST_P(RandomWalk, NeverLeavesTheControlsAndTheModelInDisagreement) {
  ASSERT_NO_FATAL_FAILURE(begin());
  ASSERT_EQ(disagreements(*window_), QStringList());
  ASSERT_NO_FATAL_FAILURE(walk());
  EXPECT_GT(model().sweepsDone(), 0);
  ASSERT_NO_FATAL_FAILURE(expectThatTheSystemCanBeSavedAndOpened());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWalk,
                         ::testing::Values(Walk{1, ""}, Walk{2, ""}, Walk{3, ""},
                                           Walk{4, "growth-from-a-seed"}, Walk{5, "phase-separation"}));

}  // namespace
}  // namespace quorvane
