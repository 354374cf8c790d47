#include <QApplication>
#include <QElapsedTimer>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>
#include <functional>

#include "WindowTest.h"

namespace quorvane {
namespace {

class StatusLineTest : public WindowTest {
 protected:
  QString line() { return text("statusLine"); }
  void show(const QString& message) { get<StatusLine>("statusLine").showMessage(message); }
};

TEST_F(StatusLineTest, ShowsTheStateAtOnce) {
  EXPECT_EQ(line(), "No model yet: Initialise fills a lattice at random, Open... brings an example");
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

TEST_F(StatusLineTest, ShowsThatAStrokePausedTheRun) {
  initialise();
  click("checkPauseWhilePaint");
  gui::press(model(), {10, 10});
  EXPECT_TRUE(gui::waitUntil([this] { return line().startsWith("Paused for painting"); }));
  gui::release(model(), {10, 10});
  EXPECT_TRUE(gui::waitUntil([this] { return line().startsWith("Stopped"); }));
}

TEST_F(StatusLineTest, SaysWhatToDoFirstInTheWindowsDefaultSize) {
  EXPECT_GE(control("statusLine").width(), control("statusLine").fontMetrics().horizontalAdvance(line()));
}

TEST_F(StatusLineTest, ShowsAMessageAfterTheState) {
  show("x.quorvane: line 3: why");
  EXPECT_EQ(line(), "No model yet  ·  x.quorvane: line 3: why");
  initialise();
  EXPECT_EQ(line(), "Stopped  ·  0 sweeps  ·  124 × 104 sites");
  show("x.quorvane: was not saved: why");
  EXPECT_EQ(line(), "Stopped  ·  0 sweeps  ·  124 × 104 sites  ·  x.quorvane: was not saved: why");
}

TEST_F(StatusLineTest, ShowsTheStateBesideAMessageWhileTheModelRuns) {
  initialise();
  key("sliderSimulationSpeed", Qt::Key_End);
  click("buttonRunModel");
  show("x.quorvane: was not saved: why");
  ASSERT_TRUE(gui::waitUntil([this] { return !line().contains("  0 sweeps"); }));
  EXPECT_TRUE(line().startsWith("Running  ·  ")) << line().toStdString();
  EXPECT_TRUE(line().contains(" sweeps  ·  124 × 104 sites  ·  ")) << line().toStdString();
  EXPECT_TRUE(line().endsWith("x.quorvane: was not saved: why")) << line().toStdString();
  // The state is updated at once, however the run was stopped.
  model().stopLatticeModel();
  EXPECT_TRUE(gui::waitUntil([this] { return line().startsWith("Stopped  ·  "); })) << line().toStdString();
  EXPECT_TRUE(line().endsWith("why")) << line().toStdString();
}

TEST_F(StatusLineTest, AMessageDisappearsWithTheNextActionOfTheUser) {
  initialise();
  const std::function<void()> actions[] = {
      [this] { click("buttonRemakeModel"); },
      [this] { click("buttonAddNewPixel"); },
      [this] {
        gui::click(model(), {5, 5});
      },
      [this] {
        gui::click(control("labelPainterHelp"), {5, 5});
      },
      [this] { key("sliderPixelField", Qt::Key_Right); },
      [this] { QTest::keyClick(window_->windowHandle(), Qt::Key_A, Qt::AltModifier); },
      [this] { QTest::keyClick(window_->windowHandle(), Qt::Key_Tab); },
      [this] {
        QWheelEvent notch(QPointF(5, 5), window_->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(window_.get(), &notch);
      },
      [this] { get<QPushButton>("buttonRunModel").click(); },
      [this] { get<QPushButton>("buttonStopModel").click(); },
  };
  for (const auto& act : actions) {
    show("why");
    act();
    EXPECT_TRUE(gui::waitUntil([this] { return !line().contains("why"); }))
        << "action " << &act - actions << ": " << line().toStdString();
  }
}

TEST_F(StatusLineTest, AMessageStaysWhileTheUserOnlyMovesTheMouseOrHoldsShift) {
  show("why");
  QTest::mouseMove(window_->windowHandle(), {50, 50});
  QTest::keyClick(window_->windowHandle(), Qt::Key_Shift);
  gui::processEvents();
  EXPECT_TRUE(line().endsWith("why")) << line().toStdString();
}

TEST_F(StatusLineTest, AMessageDisappearsAfterTenIdleSecondsAndANoticeStays) {
  StatusLine other;
  other.follow(model());
  QElapsedTimer clock;
  clock.start();
  other.showNotice("what");
  show("why");
  ASSERT_TRUE(gui::waitUntil([this] { return !line().contains("why"); }, std::chrono::seconds(20)));
  EXPECT_GE(clock.elapsed(), 9'900);
  gui::waitUntil([] { return false; }, std::chrono::milliseconds(300));
  EXPECT_TRUE(other.text().endsWith("what"));
  gui::click(control("labelPainterHelp"), {5, 5});
  EXPECT_TRUE(gui::waitUntil([&] { return !other.text().contains("what"); }));
}

TEST_F(StatusLineTest, AMessageOfAnActionStaysDuringTheActionsOwnEvents) {
  initialise();
  QObject::connect(&get<QPushButton>("buttonRemakeModel"), &QPushButton::clicked,
                   &get<StatusLine>("statusLine"), [this] { show("why"); });
  click("buttonRemakeModel");
  gui::processEvents();
  EXPECT_TRUE(line().endsWith("why")) << line().toStdString();
}

TEST_F(StatusLineTest, ShowsALongMessageWholeInItsToolTip) {
  auto& status = get<StatusLine>("statusLine");
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
