#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTimer>

#include "Lattices.h"
#include "LiteralView.h"
#include "SliceLength.h"

namespace quorvane {
namespace {

using std::chrono::milliseconds;

/// A view whose redraws a test requests in the place of a run loop.
class RunningView : public GraphicalLatticeModelGL {
 public:
  using GraphicalLatticeModelGL::requestRedrawFromRunLoop;
};

/// A stopped view with so many rectangles that a frame takes many slices.
class RunFrame : public ::testing::Test {
 protected:
  void SetUp() override {
    fillLattice(*view_, 10, 254, 254, scatteredTypes(10));
    scatterTraces(*view_, 3);
    ASSERT_TRUE(gui::waitUntil([&] { return frames_.count() > 0; }));
    gui::processEvents();
    frames_.clear();
    QObject::connect(&turn_, &QTimer::timeout, [&] { ++turns_; });
  }

  /// Without a redraw.
  void changeColoursUnnoticed() {
    for (int type = 0; type < 10; ++type) view_->varSiteColor[type][0] = 0.1 * type;
  }

  /// Requests a frame and returns when some of it is drawn.
  void drawSomeSlices() {
    view_->varMyWidth = 0.0;
    view_->requestRedrawFromRunLoop();
    ASSERT_TRUE(gui::waitUntil([&] { return view_->getWidth() > 0.0; })) << "a frame that begins sets it";
    turns_ = 0;
    turn_.start(0);
    ASSERT_TRUE(gui::waitUntil([&] { return turns_ > 2; }));
    ASSERT_EQ(frames_.count(), 0);
  }

  QImage literalFrame() const {
    literal_->resize(view_->size());
    copyPicture(*view_, *literal_);
    return gui::frameOf(*literal_);
  }

  ::testing::AssertionResult comesToShow(const QImage& frame) {
    gui::waitUntil([&] { return bool(gui::samePixels(gui::screenOf(*view_), frame)); });
    return gui::samePixels(gui::screenOf(*view_), frame);
  }

  /// The frame that the main thread requested, and the next one of the run, look like this.
  ::testing::AssertionResult showsNowAndNext(const QImage& frame) {
    for (int shown = 1; shown <= 2; ++shown) {
      if (!gui::waitUntil([&] { return frames_.count() >= shown; }))
        return ::testing::AssertionFailure() << "no frame " << shown;
      const auto same = gui::samePixels(gui::screenOf(*view_), frame);
      if (!same) return ::testing::AssertionFailure() << "frame " << shown << ": " << same.message();
      if (shown == 1) view_->requestRedrawFromRunLoop();
    }
    return ::testing::AssertionSuccess();
  }

  // Shown first, and so below the view, which would otherwise be redrawn when it goes.
  std::unique_ptr<LiteralView> literal_ = shownView<LiteralView>(300, 360);
  std::unique_ptr<RunningView> view_ = shownView<RunningView>(300, 360);
  QSignalSpy frames_{view_.get(), &GraphicalLatticeModelGL::frameDrawn};
  QTimer turn_;
  int turns_ = 0;
};

TEST_F(RunFrame, HasThePixelsOfOneWithEveryRectangleDrawn) {
  changeColoursUnnoticed();
  const QImage literal = literalFrame();
  ASSERT_FALSE(gui::samePixels(gui::screenOf(*view_), literal));
  view_->requestRedrawFromRunLoop();
  ASSERT_TRUE(gui::waitUntil([&] { return frames_.count() > 0; }));
  EXPECT_TRUE(comesToShow(literal));
  EXPECT_EQ(frames_.count(), 1);
}

TEST_F(RunFrame, LeavesRoomForManyOtherEvents) {
  drawSomeSlices();
  ASSERT_TRUE(gui::waitUntil([&] { return frames_.count() > 0; }));
  EXPECT_GT(turns_, 8);
}

TEST_F(RunFrame, IsNotShownBeforeItIsWhole) {
  const QImage before = gui::screenOf(*view_);
  changeColoursUnnoticed();
  drawSomeSlices();
  EXPECT_TRUE(gui::samePixels(gui::screenOf(*view_), before));
}

TEST_F(RunFrame, ShowsAStrokeMadeMeanwhileAtOnce) {
  drawSomeSlices();
  view_->setPaintbrushColor(4);
  view_->setPixelAlpha(4, 1.0);
  view_->mouseDown(3, 3);
  EXPECT_TRUE(showsNowAndNext(literalFrame()));
}

TEST_F(RunFrame, ShowsAColourChosenMeanwhile) {
  drawSomeSlices();
  view_->setPixelColor(9, 1.0, 1.0, 0.0);
  EXPECT_TRUE(showsNowAndNext(literalFrame()));
}

TEST_F(RunFrame, DoesNotShowALatticeThatWasReplacedMeanwhile) {
  drawSomeSlices();
  fillLattice(*view_, 3, 20, 20, scatteredTypes(3));
  EXPECT_TRUE(showsNowAndNext(literalFrame()));
}

TEST_F(RunFrame, FillsAViewThatWasResizedMeanwhile) {
  drawSomeSlices();
  view_->resize(401, 333);
  ASSERT_TRUE(gui::waitUntil([&] { return view_->getWidth() == 401.0; }));
  const QImage literal = literalFrame();
  EXPECT_TRUE(comesToShow(literal));
  view_->requestRedrawFromRunLoop();
  frames_.clear();
  ASSERT_TRUE(gui::waitUntil([&] { return frames_.count() > 0; }));
  EXPECT_TRUE(comesToShow(literal));
}

TEST_F(RunFrame, OfAViewThatIsHiddenMeanwhileIsDrawnWhenItIsShownAgain) {
  drawSomeSlices();
  view_->hide();
  gui::processEvents();
  scatterTraces(*view_, 5);
  view_->requestRedrawFromRunLoop();
  gui::processEvents();
  EXPECT_EQ(frames_.count(), 0);
  ASSERT_TRUE(gui::showAndActivate(*view_));
  EXPECT_TRUE(comesToShow(literalFrame()));
  changeColoursUnnoticed();
  view_->requestRedrawFromRunLoop();
  EXPECT_TRUE(comesToShow(literalFrame()));
}

TEST_F(RunFrame, IsFollowedByTheOneRequestedMeanwhile) {
  drawSomeSlices();
  changeColoursUnnoticed();
  view_->requestRedrawFromRunLoop();
  EXPECT_TRUE(gui::waitUntil([&] { return frames_.count() == 2; }));
  EXPECT_TRUE(comesToShow(literalFrame()));
}

TEST_F(RunFrame, OfAViewThatEndsMeanwhileIsHarmless) {
  drawSomeSlices();
  view_.reset();
  gui::processEvents();
  EXPECT_EQ(frames_.count(), 0);
}

TEST(SliceLength, GrowsToAtMostTwiceAndShrinksToWhatFits) {
  SliceLength length;
  const int first = length.columns();
  length.sliceTook(milliseconds(0));
  EXPECT_EQ(length.columns(), 2 * first);
  length.sliceTook(milliseconds(4));
  EXPECT_EQ(length.columns(), 2 * first * 5 / 4);
  length.sliceTook(milliseconds(5));
  EXPECT_EQ(length.columns(), 2 * first * 5 / 4);
  length.sliceTook(milliseconds(50));
  EXPECT_EQ(length.columns(), first / 4);
}

TEST(SliceLength, IsAtLeastOneColumnAndAtMostALattice) {
  SliceLength length;
  length.sliceTook(milliseconds(10'000));
  EXPECT_EQ(length.columns(), 1);
  for (int slice = 0; slice < 20; ++slice) length.sliceTook(milliseconds(0));
  EXPECT_EQ(length.columns(), 256);
}

}  // namespace
}  // namespace quorvane
