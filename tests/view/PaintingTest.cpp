#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QSignalSpy>
#include <cmath>
#include <utility>
#include <vector>

#include "Lattices.h"

namespace quorvane {
namespace {

/// A view 100 by 100 of 10 by 10 sites of type 0, drawn once, with the brush at type 1.
std::unique_ptr<GraphicalLatticeModelGL> viewToPaintOn(int numTypes = 3, int imax = 10, int jmax = 10,
                                                       int width = 100, int height = 100) {
  auto view = shownView(width, height);
  fillLattice(*view, numTypes, imax, jmax, [](int, int) { return 0; });
  view->setPaintbrushColor(1);
  view->setSimulationSpeed(kFastest);
  gui::frameOf(*view);
  return view;
}

/// The sites of type 1, in order of i, then j.
std::vector<std::pair<int, int>> paintedSites(const LatticeModel& model) {
  std::vector<std::pair<int, int>> sites;
  for (int i = 0; i < model.getIMax(); ++i)
    for (int j = 0; j < model.getJMax(); ++j)
      if (model.getSiteValue(i, j) == 1) sites.emplace_back(i, j);
  return sites;
}

using Sites = std::vector<std::pair<int, int>>;

/// The sites painted by a single click.
Sites clickAt(GraphicalLatticeModelGL& view, double x, double y) {
  view.mouseDown(x, y);
  view.mouseUp();
  return paintedSites(view);
}

/// Waits until no sweep has ended for a quarter of a second.
bool waitUntilSweepsEnd(const LatticeModel& model) {
  std::int64_t last = -1;
  QElapsedTimer sinceLast;
  return gui::waitUntil([&] {
    const std::int64_t now = model.sweepsDone();
    if (std::exchange(last, now) != now) sinceLast.start();
    return sinceLast.elapsed() > 250;
  });
}

TEST(Painting, AClickPaintsTheSiteAtItsPoint) {
  auto view = viewToPaintOn();
  EXPECT_EQ(clickAt(*view, 34.9, 70.0), (Sites{{3, 7}}));
}

TEST(Painting, AClickAtTheRightOrUpperEdgePaintsTheLastColumnOrRow) {
  auto view = viewToPaintOn();
  EXPECT_EQ(clickAt(*view, 100.0, 55.0), (Sites{{9, 5}}));
  view = viewToPaintOn();
  EXPECT_EQ(clickAt(*view, 55.0, 100.0), (Sites{{5, 9}}));
  view = viewToPaintOn();
  EXPECT_EQ(clickAt(*view, 1e300, 1e300), (Sites{{9, 9}}));
}

TEST(Painting, AClickAtTheEdgeCountsAsOnePointInsideIt) {
  // 200 sites over 100 points: one point inside the edge is the last site but one.
  auto view = viewToPaintOn(3, 200, 200);
  EXPECT_EQ(clickAt(*view, 100.0, 100.0), (Sites{{198, 198}}));
}

TEST(Painting, AClickLeftOfOrBelowTheViewPaintsColumnOrRowZero) {
  auto view = viewToPaintOn();
  EXPECT_EQ(clickAt(*view, -3.0, 55.0), (Sites{{0, 5}}));
  view = viewToPaintOn();
  EXPECT_EQ(clickAt(*view, 55.0, -1e300), (Sites{{5, 0}}));
}

TEST(Painting, GivesTheSiteTheFullTraceOfTheBrushAndClearsTheOthers) {
  auto view = viewToPaintOn();
  view->varMobileHistoryMax[1] = 2.5;
  view->varMobileHistory[2][3][7] = 0.5;
  view->mouseDown(35, 75);
  EXPECT_EQ(view->getSiteValue(3, 7), 1);
  EXPECT_EQ(view->varMobileHistory[1][3][7], 2.5);
  EXPECT_EQ(view->varMobileHistory[0][3][7], 0.0);
  EXPECT_EQ(view->varMobileHistory[2][3][7], 0.0);
  EXPECT_EQ(view->varMobileHistory[0][3][6], 1.0);
}

TEST(Painting, DoesNotChangeTheTracesOfTypesBeyondTheCount) {
  auto view = viewToPaintOn(2);
  view->varMobileHistory[2][3][7] = 0.5;
  view->mouseDown(35, 75);
  EXPECT_EQ(view->varMobileHistory[2][3][7], 0.5);
}

TEST(Painting, ShowsTheBrushAtFullStrengthAtOnce) {
  auto view = viewToPaintOn();
  QSignalSpy frames(view.get(), &GraphicalLatticeModelGL::frameDrawn);
  gui::processEvents();
  frames.clear();
  view->mouseDown(35, 75);
  EXPECT_TRUE(gui::waitUntil([&] { return frames.count() > 0; }));
  EXPECT_EQ(colorAt(gui::frameOf(*view), 35, 75), QColor(Qt::red));
}

TEST(Painting, BeforeTheModelIsInitialisedStartsNoStroke) {
  auto view = shownView(100, 100);
  view->setPauseWhilePaint(1);
  view->mouseDown(10, 10);
  EXPECT_EQ(view->varPainting, 0);
  EXPECT_EQ(view->varMyState, 0);
  fillLattice(*view, 2, 10, 10, [](int, int) { return 0; });
  view->setPaintbrushColor(1);
  gui::frameOf(*view);
  view->mouseDragged(55, 55);
  EXPECT_TRUE(paintedSites(*view).empty());
}

TEST(Painting, AStrokePaintsTheSitesOfItsEventsOnly) {
  auto view = viewToPaintOn();
  view->mouseDown(5, 5);
  view->mouseDragged(95, 45);
  view->mouseUp();
  view->mouseDragged(55, 55);
  EXPECT_EQ(paintedSites(*view), (Sites{{0, 0}, {9, 4}}));
}

TEST(Painting, EveryEventOfAStrokeRepaintsTheSameSite) {
  auto view = viewToPaintOn();
  view->mouseDown(55, 55);
  for (int event = 0; event < 3; ++event) {
    view->setSiteValue(5, 5, 0);
    view->mouseDragged(55 + event, 55);
    EXPECT_EQ(view->getSiteValue(5, 5), 1);
    EXPECT_EQ(view->varIHoverLast, -1);
    EXPECT_EQ(view->varJHoverLast, -1);
  }
}

TEST(Painting, AStrokeForgetsTheHoverPositionAtItsStart) {
  auto view = viewToPaintOn();
  view->varIHoverLast = 5;
  view->varJHoverLast = 5;
  EXPECT_EQ(clickAt(*view, 55, 55), (Sites{{5, 5}}));
}

TEST(Painting, SkipsTheHoverPosition) {
  auto view = viewToPaintOn();
  view->mouseDown(15, 15);
  view->varIHoverLast = 5;
  view->varJHoverLast = 5;
  view->mouseDragged(55, 55);
  EXPECT_EQ(paintedSites(*view), (Sites{{1, 1}}));
  view->mouseDragged(55, 65);
  EXPECT_EQ(paintedSites(*view), (Sites{{1, 1}, {5, 6}}));
}

TEST(Painting, FoldsARowAboveTheLatticeBackByTheHeightLessOneAndOneMore) {
  // 8 rows in a view for 20: row j above the lattice is j mod 7, less 1; no row if that is -1.
  for (int j = 8; j < 20; ++j) {
    auto view = viewToPaintOn(3, 10, 8, 100, 200);
    const int folded = j % 7 - 1;
    EXPECT_EQ(clickAt(*view, 35, j * 10 + 5), folded < 0 ? Sites{} : Sites({{3, folded}})) << "row " << j;
  }
}

TEST(Painting, FoldsAColumnBeyondAShrunkLatticeBack) {
  auto view = viewToPaintOn(3, 10, 10);
  fillLattice(*view, 3, 4, 10, [](int, int) { return 0; });
  EXPECT_EQ(clickAt(*view, 55, 15), (Sites{{1, 1}}));
}

TEST(Painting, PaintsNothingIfTheFoldGivesNoSite) {
  auto twoWide = viewToPaintOn(3, 10, 10);
  fillLattice(*twoWide, 3, 2, 2, [](int, int) { return 0; });
  EXPECT_TRUE(clickAt(*twoWide, 55, 5).empty());
  EXPECT_TRUE(clickAt(*twoWide, 5, 55).empty());
  EXPECT_EQ(clickAt(*twoWide, 15, 5), (Sites{{1, 0}}));
}

TEST(Painting, PaintsNothingBeyondALatticeWithASideOfOne) {
  auto view = viewToPaintOn(3, 10, 1);
  EXPECT_TRUE(clickAt(*view, 55, 15).empty());
  EXPECT_EQ(clickAt(*view, 55, 5), (Sites{{5, 0}}));
  auto narrow = viewToPaintOn(3, 10, 10);
  fillLattice(*narrow, 3, 1, 10, [](int, int) { return 0; });
  EXPECT_TRUE(clickAt(*narrow, 15, 5).empty());
}

TEST(Painting, PaintsNothingBeforeTheFirstFrame) {
  GraphicalLatticeModelGL view;
  fillLattice(view, 3, 10, 10, [](int, int) { return 0; });
  view.setPaintbrushColor(1);
  for (const double x : {-5.0, 0.0, 50.0}) EXPECT_TRUE(clickAt(view, x, 5.0).empty()) << x;
}

TEST(Painting, PaintsNothingAtACoordinateThatIsNaNOrInfinite) {
  auto view = viewToPaintOn();
  for (const double odd : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
    EXPECT_TRUE(clickAt(*view, odd, 5.0).empty()) << odd;
    EXPECT_TRUE(clickAt(*view, 5.0, odd).empty()) << odd;
  }
}

TEST(Painting, PaintsNothingWithABrushOutsideTheTenTypes) {
  auto view = viewToPaintOn();
  for (const int brush : {-1, 10, 1000000}) {
    view->setPaintbrushColor(brush);
    view->mouseDown(55, 55);
    EXPECT_EQ(view->getSiteValue(5, 5), 0);
    EXPECT_EQ(view->varMobileHistory[0][5][5], 1.0);
    view->mouseUp();
  }
}

TEST(Painting, PaintsATypeBeyondTheCount) {
  auto view = viewToPaintOn();
  view->setPaintbrushColor(9);
  view->mouseDown(55, 55);
  EXPECT_EQ(view->getSiteValue(5, 5), 9);
}

TEST(PaintingPause, PausesAStoppedModelAndRestoresTheStopWithoutARun) {
  auto view = viewToPaintOn();
  view->setPauseWhilePaint(1);
  view->mouseDown(55, 55);
  EXPECT_EQ(view->varMyState, kPausedForPainting);
  EXPECT_EQ(view->varMyStateBeforePainting, kStopped);
  view->mouseUp();
  EXPECT_EQ(view->varMyState, kStopped);
  view->endRunLoops();
  EXPECT_EQ(view->sweepsDone(), 0);
}

TEST(PaintingPause, HaltsARunForTheStrokeAndStartsItAgain) {
  auto view = viewToPaintOn();
  view->setPauseWhilePaint(1);
  view->runLatticeModelInBackground();
  ASSERT_TRUE(gui::waitUntil([&] { return view->sweepsDone() > 5; }));
  view->mouseDown(55, 55);
  EXPECT_EQ(view->varMyState, kPausedForPainting);
  ASSERT_TRUE(waitUntilSweepsEnd(*view));
  view->mouseDragged(65, 55);
  EXPECT_EQ(view->varMyState, kPausedForPainting);
  const std::int64_t paused = view->sweepsDone();
  view->mouseUp();
  EXPECT_EQ(view->varMyState, kRunning);
  EXPECT_TRUE(gui::waitUntil([&] { return view->sweepsDone() > paused + 5; }));
  view->stopLatticeModel();
}

TEST(PaintingPause, OffLetsARunGoOnDuringTheStroke) {
  auto view = viewToPaintOn();
  view->runLatticeModelInBackground();
  view->mouseDown(55, 55);
  EXPECT_EQ(view->varMyState, kRunning);
  const std::int64_t before = view->sweepsDone();
  EXPECT_TRUE(gui::waitUntil([&] { return view->sweepsDone() > before + 5; }));
  view->mouseUp();
  EXPECT_EQ(view->varMyState, kRunning);
  view->stopLatticeModel();
}

TEST(PaintingPause, IsReadAgainAtTheEndOfTheStroke) {
  auto view = viewToPaintOn();
  view->setPauseWhilePaint(1);
  view->mouseDown(55, 55);
  view->setPauseWhilePaint(0);
  view->mouseUp();
  EXPECT_EQ(view->varPainting, 0);
  EXPECT_EQ(view->varMyState, kPausedForPainting);
}

TEST(PaintingPause, SwitchedOnDuringAStrokeRestoresTheStateBeforeThePreviousPause) {
  auto view = viewToPaintOn();
  view->varMyStateBeforePainting = kStopped;
  view->varMyState = kPausedForPainting;
  view->mouseDown(55, 55);
  view->setPauseWhilePaint(1);
  view->mouseUp();
  EXPECT_EQ(view->varMyState, kStopped);
}

TEST(PaintingPause, OnlyTheValueOneSwitchesItOn) {
  auto view = viewToPaintOn();
  view->setPauseWhilePaint(2);
  view->mouseDown(55, 55);
  EXPECT_EQ(view->varMyState, kStopped);
  view->mouseUp();
}

TEST(PaintingPause, ReleaseWithoutAStrokeChangesNothing) {
  auto view = viewToPaintOn();
  view->setPauseWhilePaint(1);
  view->varMyStateBeforePainting = kRunning;
  view->mouseUp();
  EXPECT_EQ(view->varMyState, kStopped);
}

}  // namespace
}  // namespace quorvane
