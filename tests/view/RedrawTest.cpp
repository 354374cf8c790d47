#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QSignalSpy>
#include <thread>

#include "Lattices.h"
#include "Waiting.h"

namespace quorvane {
namespace {

/// Counts the events that reach an object, of whatever kind.
class Events : public QObject {
 public:
  explicit Events(QObject& watched) { watched.installEventFilter(this); }
  int count() const { return count_; }

 protected:
  bool eventFilter(QObject*, QEvent*) override {
    ++count_;
    return false;
  }

 private:
  int count_ = 0;
};

/// Waits for sweeps while the main thread handles no event.
::testing::AssertionResult waitBusyForSweeps(const LatticeModel& model, std::int64_t sweeps) {
  QElapsedTimer timer;
  timer.start();
  while (model.sweepsDone() < sweeps) {
    if (timer.elapsed() > gui::kDeadline.count()) return ::testing::AssertionFailure() << "too few sweeps";
    std::this_thread::yield();
  }
  return ::testing::AssertionSuccess();
}

std::unique_ptr<GraphicalLatticeModelGL> settledView() {
  auto view = shownView(100, 100);
  fillLattice(*view, 2, 10, 10, scatteredTypes(2));
  QSignalSpy frames(view.get(), &GraphicalLatticeModelGL::frameDrawn);
  EXPECT_TRUE(gui::waitUntil([&] { return frames.count() > 0; }));
  gui::processEvents();
  return view;
}

/// Looks at the screen alone: to ask the view for a frame would draw one.
bool showsItsSites(GraphicalLatticeModelGL& view) {
  const QImage shown = gui::screenOf(view);
  for (int i = 0; i < 10; ++i)
    for (int j = 0; j < 10; ++j)
      if (shown.pixelColor(10 * i + 5, 100 - (10 * j + 5)) != paletteColor(view.getSiteValue(i, j)))
        return false;
  return true;
}

TEST(Redraw, FollowsAChangeOfColour) {
  auto view = settledView();
  QSignalSpy frames(view.get(), &GraphicalLatticeModelGL::frameDrawn);
  view->setPixelColor(0, 1.0, 1.0, 0.0);
  EXPECT_TRUE(gui::waitUntil([&] { return frames.count() == 1; }));
}

TEST(Redraw, DoesNotFollowAWrittenSite) {
  auto view = settledView();
  QSignalSpy frames(view.get(), &GraphicalLatticeModelGL::frameDrawn);
  view->setSiteValue(3, 3, 1);
  gui::processEvents();
  EXPECT_EQ(frames.count(), 0);
}

TEST(Redraw, FollowsTheSweepsOfARun) {
  auto view = settledView();
  QSignalSpy frames(view.get(), &GraphicalLatticeModelGL::frameDrawn);
  view->setSimulationSpeed(kFastest);
  view->runLatticeModelInBackground();
  EXPECT_TRUE(gui::waitUntil([&] { return frames.count() >= 5; }));
  view->stopLatticeModel();
}

TEST(Redraw, ShowsWhatTheLastSweepOfARunLeft) {
  auto view = settledView();
  view->setSimulationSpeed(kFastest);
  view->makeNewRule("to red", kIrreversibleFlip, 0, 1);
  view->setRuleParam(0, 1.0);
  view->makeNewRule("back", kIrreversibleFlip, 1, 0);
  view->setRuleParam(1, 0.5);
  view->runLatticeModelInBackground();
  ASSERT_TRUE(gui::waitUntil([&] { return view->sweepsDone() > 50; }));
  view->endRunLoops();
  EXPECT_TRUE(gui::waitUntil([&] { return showsItsSites(*view); }));
}

TEST(Redraw, MergesTheRequestsOfALoopThatOutrunsTheScreen) {
  auto view = settledView();
  view->setSimulationSpeed(kFastest);
  QSignalSpy frames(view.get(), &GraphicalLatticeModelGL::frameDrawn);
  const Events events(*view);
  view->runLatticeModelInBackground();
  ASSERT_TRUE(waitBusyForSweeps(*view, 500));
  view->endRunLoops();
  EXPECT_TRUE(gui::waitUntil([&] { return frames.count() > 0; }));
  gui::processEvents();
  EXPECT_LT(events.count(), 25) << "for 500 sweeps";
  EXPECT_EQ(frames.count(), 1);
}

TEST(Redraw, FollowsEachOfSeveralRuns) {
  auto view = settledView();
  view->setSimulationSpeed(kFastest);
  QSignalSpy frames(view.get(), &GraphicalLatticeModelGL::frameDrawn);
  for (int run = 1; run <= 3; ++run) {
    const std::int64_t before = view->sweepsDone();
    view->runLatticeModelInBackground();
    ASSERT_TRUE(waitBusyForSweeps(*view, before + 10));
    view->endRunLoops();
    EXPECT_TRUE(gui::waitUntil([&] { return frames.count() == run; }));
  }
}

TEST(Redraw, RequestedFromAViewThatIsGoneIsHarmless) {
  auto view = settledView();
  view->setSimulationSpeed(kFastest);
  QSignalSpy frames(view.get(), &GraphicalLatticeModelGL::frameDrawn);
  QSignalSpy gone(view.get(), &QObject::destroyed);
  view->runLatticeModelInBackground();
  ASSERT_TRUE(waitBusyForSweeps(*view, 10));
  view.reset();
  gui::processEvents();
  EXPECT_EQ(gone.count(), 1);
  EXPECT_EQ(frames.count(), 0);
}

// That these two end is what they show.
TEST(Redraw, RightAfterTheStartOfARunWithoutAnEndOfItsWaitTheViewIsDestroyed) {
  auto view = settledView();
  view->setSimulationSpeed(kEndlessWait);
  view->runLatticeModelInBackground();
  view.reset();
}

TEST(Redraw, DuringAWaitWithoutAnEndTheViewIsDestroyed) {
  auto view = settledView();
  view->setSimulationSpeed(kEndlessWait);
  view->runLatticeModelInBackground();
  ASSERT_TRUE(waitBusyForSweeps(*view, 1));
  view.reset();
}

TEST(Drawing, WithoutAContextDoesNothing) {
  GraphicalLatticeModelGL view;
  QSignalSpy frames(&view, &GraphicalLatticeModelGL::frameDrawn);
  ASSERT_EQ(QOpenGLContext::currentContext(), nullptr);
  view.reshape();
  view.drawRect();
  EXPECT_EQ(frames.count(), 0);
}

TEST(Drawing, InAContextWithoutFixedFunctionsDoesNothing) {
  QSurfaceFormat format;
  format.setRenderableType(QSurfaceFormat::OpenGL);
  format.setVersion(3, 3);
  format.setProfile(QSurfaceFormat::CoreProfile);
  QOpenGLContext context;
  context.setFormat(format);
  ASSERT_TRUE(context.create());
  ASSERT_EQ(context.format().profile(), QSurfaceFormat::CoreProfile);
  QOffscreenSurface surface;
  surface.setFormat(context.format());
  surface.create();
  ASSERT_TRUE(context.makeCurrent(&surface));
  GraphicalLatticeModelGL view;
  QSignalSpy frames(&view, &GraphicalLatticeModelGL::frameDrawn);
  view.drawRect();
  EXPECT_EQ(frames.count(), 0);
}

TEST(Drawing, IsPossibleHereInAContextOfTheSurfaceFormat) {
  EXPECT_TRUE(GraphicalLatticeModelGL::canDraw());
  const QSurfaceFormat format = GraphicalLatticeModelGL::surfaceFormat();
  EXPECT_EQ(format.renderableType(), QSurfaceFormat::OpenGL);
  EXPECT_EQ(format.version(), qMakePair(2, 1));
  EXPECT_EQ(format.profile(), QSurfaceFormat::NoProfile);
}

}  // namespace
}  // namespace quorvane
