#include "WindowTest.h"
#include "app/PopulationPlot.h"
#include "view/GraphicalPlot.h"

namespace quorvane {
namespace {

/// A running model of 10 x 10 sites and 3 types, of which type 1 holds the first sites.
class Populations : public ::testing::Test {
 protected:
  void SetUp() override {
    model_->awakeFromNib();
    model_->initializeLatticeModel(3, 10, 10);
    model_->varMyState = kRunning;
    hold(0);
    view_.resize(1285, 100);
    ASSERT_TRUE(gui::showAndActivate(view_));
  }
  void hold(int sites) {
    for (int k = 0; k < 100; ++k) model_->setSiteValue(k / 10, k % 10, k < sites ? 1 : 0);
  }
  QColor at(int x, int y) { return view_.grab().toImage().pixelColor(x, y); }

  std::unique_ptr<LatticeModel> model_ = std::make_unique<LatticeModel>();
  GraphicalPlot view_;
  PopulationPlot plot_{*model_, view_};
};

TEST_F(Populations, RecordsTheShareOfEveryType) {
  hold(25);
  plot_.record();
  EXPECT_EQ(plot_.numPoints(), 1);
  EXPECT_EQ(plot_.share(0, 0), 0.75);
  EXPECT_EQ(plot_.share(1, 0), 0.25);
  EXPECT_EQ(plot_.share(2, 0), 0.0);
}

TEST_F(Populations, RecordsOnlyWhileTheModelRuns) {
  for (const int state : {kStopped, kPausedForPainting, kNotInitialised}) {
    model_->varMyState = state;
    plot_.record();
  }
  EXPECT_EQ(plot_.numPoints(), 0);
}

TEST_F(Populations, KeepsTheLast256Points) {
  for (int point = 0; point < 300; ++point) {
    hold(point % 100);
    plot_.record();
  }
  EXPECT_EQ(plot_.numPoints(), 256);
  EXPECT_EQ(plot_.share(1, 0), 0.44);
  EXPECT_EQ(plot_.share(1, 255), 0.99);
}

TEST_F(Populations, ShowsTheFirstTypeInRedAndTheOtherInGreen) {
  hold(25);
  plot_.showTypes(1, 0);
  plot_.record();
  EXPECT_EQ(at(5, 75), QColor(Qt::red));
  EXPECT_EQ(at(5, 25), QColor(Qt::green));
  EXPECT_EQ(at(50, 50), QColor(Qt::white));
}

TEST_F(Populations, ShowsTheWholeRecordOfATypeChosenLater) {
  hold(25);
  plot_.record();
  hold(60);
  plot_.record();
  plot_.showTypes(1, 2);
  EXPECT_EQ(at(5, 75), QColor(Qt::red));
  EXPECT_EQ(at(645, 40), QColor(Qt::red));
  plot_.showTypes(2, 1);
  EXPECT_EQ(at(5, 75), QColor(Qt::green));
  EXPECT_EQ(at(645, 40), QColor(Qt::green));
}

using PlotInTheWindow = WindowTest;

TEST_F(PlotInTheWindow, HasAPointForEachRedrawOfARun) {
  initialise(3);
  EXPECT_EQ(window_->plot().numPoints(), 0);
  click("buttonRunModel");
  ASSERT_TRUE(gui::waitUntil([this] { return window_->plot().numPoints() >= 3; }));
  click("buttonStopModel");
  gui::processEvents();
  const int points = window_->plot().numPoints();
  gui::frameOf(model());
  gui::processEvents();
  EXPECT_EQ(window_->plot().numPoints(), points);
  double sum = 0.0;
  for (int type = 0; type < 3; ++type) sum += window_->plot().share(type, points - 1);
  EXPECT_NEAR(sum, 1.0, 1e-12);
}

TEST_F(PlotInTheWindow, TheLegendNamesTheChosenTypes) {
  EXPECT_EQ(text("labelPlotRed"), "No type yet");
  initialise(3);
  choose("listSelectPixelType", "2 - Pixel");
  choose("listPaintType", "1 - Pixel");
  EXPECT_EQ(text("labelPlotRed"), "2 - Pixel");
  EXPECT_EQ(text("labelPlotGreen"), "1 - Pixel");
  enter("textPixelName", "ice");
  EXPECT_EQ(text("labelPlotRed"), "2 - ice");
  EXPECT_EQ(well("swatchPlotRed").color(), QColor(Qt::red));
  EXPECT_EQ(well("swatchPlotGreen").color(), QColor(Qt::green));
}

TEST_F(PlotInTheWindow, TheLegendSaysThatBothColoursShowTheSameType) {
  initialise(3);
  EXPECT_EQ(text("labelPlotRed"), "0 - Pixel");
  EXPECT_EQ(text("labelPlotGreen"), "the same type");
  choose("listPaintType", "1 - Pixel");
  EXPECT_EQ(text("labelPlotGreen"), "1 - Pixel");
  choose("listSelectPixelType", "1 - Pixel");
  EXPECT_EQ(text("labelPlotRed"), "1 - Pixel");
  EXPECT_EQ(text("labelPlotGreen"), "the same type");
  enter("textPixelName", "ice");
  EXPECT_EQ(text("labelPlotRed"), "1 - ice");
  EXPECT_EQ(text("labelPlotGreen"), "the same type");
  choose("listSelectPixelType", "2 - Pixel");
  EXPECT_EQ(text("labelPlotGreen"), "1 - ice");
}

TEST_F(PlotInTheWindow, ShowsTheChosenTypes) {
  initialise(2);
  for (int i = 0; i < model().getIMax(); ++i)
    for (int j = 0; j < model().getJMax(); ++j) model().setSiteValue(i, j, 0);
  choose("listPaintType", "1 - Pixel");
  click("buttonRunModel");
  ASSERT_TRUE(gui::waitUntil([this] { return window_->plot().numPoints() >= 2; }));
  QWidget& plot = control("plotPopulations");
  const auto top = [&] { return plot.grab().toImage().pixelColor(5, 1); };
  const auto bottom = [&] { return plot.grab().toImage().pixelColor(5, plot.height() - 2); };
  EXPECT_EQ(top(), QColor(Qt::red));
  EXPECT_EQ(bottom(), QColor(Qt::green));
  choose("listSelectPixelType", "1 - Pixel");
  choose("listPaintType", "0 - Pixel");
  EXPECT_EQ(top(), QColor(Qt::green));
  EXPECT_EQ(bottom(), QColor(Qt::red));
}

}  // namespace
}  // namespace quorvane
