#include <gtest/gtest.h>

#include <QScreen>
#include <cmath>

#include "Lattices.h"
#include "LiteralView.h"

// Runs with the device pixel ratio that the environment sets for the process.

namespace quorvane {
namespace {

double expectedRatio() { return qEnvironmentVariable("QT_SCALE_FACTOR").toDouble(); }

/// The site shown at the centre of a device pixel, -1 for a gap; points along one axis.
int siteAt(int devicePixel, double points, int devicePixels, double spacing) {
  const double coordinate = (devicePixel + 0.5) * points / devicePixels;
  const double within = std::fmod(coordinate, spacing);
  return spacing > 8.0 && within < 2.0 ? -1 : static_cast<int>(coordinate / spacing);
}

TEST(Scaled, TheFrameHasOnePixelForEveryDevicePixel) {
  ASSERT_GT(expectedRatio(), 1.0);
  auto view = shownView(201, 121);
  EXPECT_EQ(view->devicePixelRatioF(), expectedRatio());
  EXPECT_EQ(gui::frameOf(*view).size(), view->size() * expectedRatio());
}

TEST(Scaled, TheLatticeSpansTheWholeViewAndIsMeasuredInPoints) {
  for (const int sites : {20, 50}) {
    auto view = shownView(200, 120);
    fillLattice(*view, 4, sites, sites, [](int i, int j) { return 1 + (i + 2 * j) % 3; });
    const QImage frame = gui::frameOf(*view);
    const double spacing = 200.0 / sites;
    EXPECT_EQ(view->varSiteSpacing, spacing);
    for (int x = 0; x < frame.width(); ++x)
      for (int y = 0; y < frame.height(); ++y) {
        const int i = siteAt(x, 200.0, frame.width(), spacing);
        const int j = siteAt(y, 120.0, frame.height(), spacing);
        const QColor site = i < 0 || j < 0 ? QColor(Qt::black) : paletteColor(view->getSiteValue(i, j));
        ASSERT_EQ(colorAt(frame, x, y), site) << x << ", " << y << " of " << sites;
      }
  }
}

TEST(Scaled, TheFrameEqualsTheOneWithEveryRectangleDrawn) {
  // A window has whole device pixels; a view inside it may not.
  for (const QSize size : {QSize(222, 283), QSize(201, 133)}) {
    QWidget window;
    window.resize(500, 300);
    auto view = std::make_unique<GraphicalLatticeModelGL>(&window);
    auto literal = std::make_unique<LiteralView>();
    literal->setParent(&window);
    view->setGeometry(QRect(QPoint(0, 0), size));
    literal->setGeometry(QRect(QPoint(250, 0), size));
    ASSERT_TRUE(gui::showAndActivate(window));
    for (LatticeModel* model :
         {static_cast<LatticeModel*>(view.get()), static_cast<LatticeModel*>(literal.get())}) {
      fillLattice(*model, 6, 47, 31, scatteredTypes(6));
      scatterTraces(*model, 11);
    }
    EXPECT_TRUE(gui::samePixels(gui::frameOf(*view), gui::frameOf(*literal)));
  }
}

TEST(Scaled, TheFrameFillsTheViewAfterAResize) {
  auto view = shownView(100, 100);
  fillLattice(*view, 2, 10, 30, [](int, int) { return 1; });
  view->resize(330, 250);
  ASSERT_TRUE(gui::waitUntil([&] { return view->getWidth() == 330.0; }));
  const QImage frame = gui::frameOf(*view);
  ASSERT_EQ(frame.size(), QSize(330, 250) * expectedRatio());
  EXPECT_EQ(colorAt(frame, frame.width() - 2, frame.height() - 4), QColor(Qt::red));
  EXPECT_EQ(colorAt(frame, frame.width() - 2, 0), QColor(Qt::black));
}

TEST(Scaled, TheWindowIsMeasuredInPoints) {
  QWidget window;
  auto* view = new GraphicalLatticeModelGL(&window);
  window.resize(700, 500);
  ASSERT_TRUE(gui::showAndActivate(window));
  EXPECT_EQ(view->geometry(), QRect(11, 29, 144, 266));
}

TEST(Scaled, AClickPaintsTheSiteUnderIt) {
  auto view = shownView(200, 200);
  fillLattice(*view, 2, 20, 20, [](int, int) { return 0; });
  view->setPaintbrushColor(1);
  gui::frameOf(*view);
  gui::click(*view, QPoint(135, 195));
  EXPECT_EQ(view->getSiteValue(13, 0), 1);
  gui::click(*view, gui::pixelAt(*view, 64, 128));
  EXPECT_EQ(view->getSiteValue(6, 12), 1);
}

TEST(Scaled, FullScreenFillsTheScreen) {
  QWidget window;
  auto* view = new GraphicalLatticeModelGL(&window);
  window.resize(700, 500);
  ASSERT_TRUE(gui::showAndActivate(window));
  fillLattice(*view, 2, 40, 40, [](int, int) { return 1; });
  view->enterFullScreenMode();
  const QSize screen = view->screen()->size();
  ASSERT_TRUE(gui::waitUntil([&] { return view->getWidth() == screen.width(); }));
  EXPECT_EQ(gui::frameOf(*view).size(), screen * expectedRatio());
  view->exitFullScreenMode();
  EXPECT_EQ(view->geometry(), QRect(11, 29, 144, 266));
}

}  // namespace
}  // namespace quorvane
