#include "RandomWalk.h"

#include <QTemporaryDir>

#include "FilePanel.h"
#include "ProgramRun.h"
#include "RandomUser.h"
#include "WindowInvariants.h"
#include "document/ModelDocument.h"

namespace quorvane {

void RandomWalkTest::begin(const QString& example) {
  if (!example.isEmpty()) {
    const QString document = QString(EXAMPLES) + "/" + example + ".quorvane";
    ASSERT_TRUE(gui::choosePath(get<QPushButton>("buttonOpenSystem"), document));
  } else {
    key("sliderWidthHeight", Qt::Key_Left, 70);
    click("buttonInitialiseModel");
  }
  key("sliderSimulationSpeed", Qt::Key_End);
  ASSERT_EQ(disagreements(*window_), QStringList());
}

void RandomWalkTest::walk(unsigned seed, Pace pace, std::chrono::seconds longest) {
  RandomUser user(*window_, seed);
  const auto end = std::chrono::steady_clock::now() + longest;
  QStringList trail;
  for (int step = 0; step < kSteps && !HasFailure() && std::chrono::steady_clock::now() < end; ++step) {
    trail += user.act();
    acted(trail.last());
    if (pace == Pace::kRepeatable) user.waitForMnemonics();
    ASSERT_EQ(disagreements(*window_), QStringList())
        << "step " << step << " after " << trail.mid(qMax(0, trail.size() - 6)).join("; ").toStdString();
  }
  user.waitForMnemonics();
}

void RandomWalkTest::expectThatTheSystemCanBeSavedAndOpened() {
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

}  // namespace quorvane
