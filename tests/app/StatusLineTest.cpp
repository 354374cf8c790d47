#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

#include "WindowTest.h"

namespace quorvane {
namespace {

class StatusLineTest : public WindowTest {
 protected:
  QString line() { return text("statusLine"); }
};

TEST_F(StatusLineTest, TellsTheStateAtOnce) {
  EXPECT_EQ(line(), "No model yet");
  initialise();
  EXPECT_EQ(line(), "Stopped  ·  0 sweeps  ·  124 × 104 sites");
  click("buttonRunModel");
  EXPECT_TRUE(line().startsWith("Running  ·  ")) << line().toStdString();
  click("buttonStopModel");
  EXPECT_TRUE(line().startsWith("Stopped  ·  ")) << line().toStdString();
}

TEST_F(StatusLineTest, CountsSweepsWhileTheModelRuns) {
  initialise();
  key("sliderSimulationSpeed", Qt::Key_End);
  click("buttonRunModel");
  EXPECT_TRUE(gui::waitUntil([this] {
    return line().contains("sweeps/s") && !line().contains("  0.0 sweeps/s") &&
           !line().contains("  0 sweeps");
  })) << line().toStdString();
  click("buttonStopModel");
  ASSERT_TRUE(gui::waitUntil([this] {
    return line() == QString("Stopped  ·  %1 sweeps  ·  124 × 104 sites")
                         .arg(QLocale().toString(qlonglong(model().sweepsDone())));
  })) << line().toStdString();
}

TEST_F(StatusLineTest, TellsThatAStrokePausedTheRun) {
  initialise();
  click("checkPauseWhilePaint");
  gui::press(model(), {10, 10});
  EXPECT_TRUE(gui::waitUntil([this] { return line().startsWith("Paused for painting"); }));
  gui::release(model(), {10, 10});
  EXPECT_TRUE(gui::waitUntil([this] { return line().startsWith("Stopped"); }));
}

TEST_F(StatusLineTest, ShowsAMessageUntilItIsCleared) {
  StatusLine& status = get<StatusLine>("statusLine");
  status.showMessage("x.quorvane: line 3: why");
  EXPECT_EQ(line(), "No model yet  ·  x.quorvane: line 3: why");
  initialise();
  EXPECT_EQ(line(), "Stopped  ·  0 sweeps  ·  124 × 104 sites");
}

TEST_F(StatusLineTest, ShowsALongMessageWholeInItsToolTip) {
  StatusLine& status = get<StatusLine>("statusLine");
  const int room = window_->width();
  status.showMessage(QString(500, 'x'));
  gui::processEvents();
  EXPECT_EQ(window_->width(), room);
  QHelpEvent ask(QEvent::ToolTip, {5, 5}, status.mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(&status, &ask);
  EXPECT_TRUE(QToolTip::text().contains(QString(500, 'x')));
}

}  // namespace
}  // namespace quorvane
