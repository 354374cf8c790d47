#include <QFile>
#include <QTemporaryDir>

#include "FilePanel.h"
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

TEST_F(Populations, APointCanBeAddedWhileTheModelIsStopped) {
  model_->varMyState = kStopped;
  hold(25);
  plot_.addPoint();
  EXPECT_EQ(plot_.numPoints(), 1);
  EXPECT_EQ(plot_.share(1, 0), 0.25);
}

TEST_F(Populations, AreEmptyAfterARestart) {
  hold(25);
  plot_.showTypes(1, 2);
  for (int point = 0; point < 300; ++point) plot_.record();
  plot_.startAnew();
  EXPECT_EQ(plot_.numPoints(), 0);
  EXPECT_EQ(at(5, 75), QColor(Qt::white));
  hold(60);
  plot_.record();
  EXPECT_EQ(plot_.numPoints(), 1);
  EXPECT_EQ(plot_.share(1, 0), 0.6);
}

TEST_F(Populations, AreATableOfTheSweepsAndSitesOfThePointsKept) {
  model_->setPixelName(1, "with \"quotes\", a comma");
  model_->varMyState = kStopped;
  hold(100);
  for (int point = 0; point < 44; ++point) plot_.addPoint();
  for (int point = 0; point < 256; ++point) {
    ASSERT_TRUE(model_->sweepOnce());
    hold(point % 100);
    plot_.addPoint();
  }
  std::string expected = "sweep,\"Pixel\",\"with \"\"quotes\"\", a comma\",\"Pixel\"\n";
  for (int point = 0; point < 256; ++point)
    expected += std::to_string(point + 1) + ',' + std::to_string(100 - point % 100) + ',' +
                std::to_string(point % 100) + ",0\n";
  EXPECT_EQ(plot_.csv(), expected);
}

TEST_F(Populations, AreZeroForATypeBeforeItWasAdded) {
  hold(25);
  plot_.record();
  model_->addPixelType();
  model_->setSiteValue(9, 9, 3);
  plot_.record();
  EXPECT_EQ(plot_.csv(), "sweep,\"Pixel\",\"Pixel\",\"Pixel\",\"New Pixel\"\n0,75,25,0,0\n0,74,25,0,1\n");
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

TEST_F(PlotInTheWindow, IsClearedByRemake) {
  initialise(3);
  click("buttonRunModel");
  ASSERT_TRUE(gui::waitUntil([this] { return window_->plot().numPoints() >= 3; }));
  click("buttonStopModel");
  gui::processEvents();
  EXPECT_GE(window_->plot().numPoints(), 3);
  click("buttonRemakeModel");
  EXPECT_EQ(window_->plot().numPoints(), 0);
}

TEST_F(PlotInTheWindow, IsClearedByOpeningADocumentAfterOneThatWasCutShort) {
  const QTemporaryDir folder;
  const QString shortOne = folder.filePath("short.quorvane"), refused = folder.filePath("refused.quorvane");
  const QString whole = QString(EXAMPLES) + "/phase-separation.quorvane";
  QFile document(whole), cut(shortOne), bad(refused);
  ASSERT_TRUE(document.open(QIODevice::ReadOnly) && cut.open(QIODevice::WriteOnly));
  ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
  cut.write(document.readAll().left(1000));
  cut.close();
  bad.write("300\n20\n2\n");
  bad.close();
  const auto open = [this](const QString& path) {
    ASSERT_TRUE(gui::choosePath(get<QPushButton>("buttonOpenSystem"), path));
  };
  const auto addTwoPoints = [this] {
    for (int sweep = 0; sweep < 2; ++sweep) key("listNewRuleType", Qt::Key_Right, 1, Qt::ControlModifier);
    ASSERT_EQ(window_->plot().numPoints(), 2);
  };
  open(shortOne);
  addTwoPoints();
  open(refused);
  EXPECT_EQ(window_->plot().numPoints(), 2) << "nothing has changed";
  open(shortOne);
  EXPECT_EQ(window_->plot().numPoints(), 0) << "what there was of it is another lattice";
  addTwoPoints();
  open(whole);
  EXPECT_EQ(window_->plot().numPoints(), 0);
}

TEST_F(PlotInTheWindow, IsClearedByInitialiseAfterADocumentThatWasCutShort) {
  const QTemporaryDir folder;
  QFile cut(folder.filePath("short.quorvane"));
  ASSERT_TRUE(cut.open(QIODevice::WriteOnly));
  cut.write("3\n2\n2\n0\n1\n");
  cut.close();
  ASSERT_TRUE(gui::choosePath(get<QPushButton>("buttonOpenSystem"), cut.fileName()));
  key("buttonInitialiseModel", Qt::Key_Right, 2, Qt::ControlModifier);
  EXPECT_EQ(window_->plot().numPoints(), 2);
  click("buttonInitialiseModel");
  EXPECT_EQ(window_->plot().numPoints(), 0);
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
