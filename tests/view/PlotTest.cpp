#include <gtest/gtest.h>

#include <QSignalSpy>
#include <limits>

#include "Lattices.h"
#include "view/GraphicalPlot.h"

namespace quorvane {
namespace {

QImage pictureOf(GraphicalPlot& plot) { return plot.grab().toImage().convertToFormat(QImage::Format_RGB32); }

/// The bounding rectangle of the pixels of one colour, counted from the bottom left.
QRect extentOf(const QImage& picture, const QColor& color, QRect within) {
  QRect extent;
  for (int x = within.left(); x <= within.right(); ++x)
    for (int y = within.top(); y <= within.bottom(); ++y)
      if (colorAt(picture, x, y) == color) extent |= QRect(x, y, 1, 1);
  return extent;
}

QRect extentOf(const QImage& picture, const QColor& color) {
  return extentOf(picture, color, picture.rect());
}

bool isWhite(const QImage& picture) {
  QImage white(picture.size(), QImage::Format_RGB32);
  white.fill(Qt::white);
  return bool(gui::samePixels(picture, white));
}

/// A plot 205 wide and 100 high with the green markers at the top and all red ones at one value.
std::unique_ptr<GraphicalPlot> plotOf(int points, double red) {
  auto plot = std::make_unique<GraphicalPlot>();
  plot->resize(205, 100);
  plot->setState(1);
  plot->setXMax(points);
  for (int k = 0; k < points; ++k) {
    plot->setXYValue(0, k, red);
    plot->setXYValue(1, k, 0.9);
  }
  return plot;
}

TEST(Plot, ShowsOnlyWhiteAtFirst) {
  GraphicalPlot plot;
  plot.resize(205, 100);
  EXPECT_TRUE(isWhite(pictureOf(plot)));
}

TEST(Plot, DrawsFourPointsInAWidthOf205At5And55And105And155) {
  auto plot = plotOf(4, 0.5);
  const QImage picture = pictureOf(*plot);
  for (int k = 0; k < 4; ++k) {
    const int centre = 5 + 50 * k;
    const QRect around(centre - 5 < 0 ? 0 : centre - 5, 0, 20, 100);
    // 2.5 points to each side: both edges are in the middle of a pixel.
    for (const QColor color : {QColor(Qt::red), QColor(Qt::green)}) {
      const QRect marker = extentOf(picture, color, around);
      EXPECT_EQ(marker.width(), 5);
      EXPECT_NEAR(marker.x() + 2.5, centre, 0.5) << "point " << k;
    }
  }
  EXPECT_TRUE(extentOf(picture, Qt::red, QRect(160, 0, 45, 100)).isEmpty());
}

TEST(Plot, DrawsTheMarkerOfOneHalfAroundTheMiddle) {
  auto plot = plotOf(1, 0.5);
  const QRect marker = extentOf(pictureOf(*plot), Qt::red);
  EXPECT_EQ(marker.height(), 5);
  EXPECT_NEAR(marker.y(), 47.5, 0.5);
}

TEST(Plot, CountsValuesFromTheBottom) {
  auto plot = plotOf(1, 0.105);
  const QImage picture = pictureOf(*plot);
  EXPECT_EQ(extentOf(picture, Qt::red).y(), 8);
  EXPECT_NEAR(extentOf(picture, Qt::green).y(), 87.5, 0.5);
}

TEST(Plot, CutsMarkersOfValuesZeroAndOneInHalf) {
  auto plot = plotOf(1, 0.0);
  plot->setXYValue(1, 0, 1.0);
  const QImage picture = pictureOf(*plot);
  const QRect red = extentOf(picture, Qt::red), green = extentOf(picture, Qt::green);
  EXPECT_EQ(red.y(), 0);
  EXPECT_NEAR(red.height(), 2.5, 0.5);
  EXPECT_EQ(green.y() + green.height(), 100);
  EXPECT_NEAR(green.height(), 2.5, 0.5);
}

TEST(Plot, DrawsTheGreenMarkerOfAPointOverItsRedOne) {
  auto plot = plotOf(1, 0.9);
  const QImage picture = pictureOf(*plot);
  EXPECT_TRUE(extentOf(picture, Qt::red).isEmpty());
  EXPECT_EQ(extentOf(picture, Qt::green).size(), QSize(5, 5));
}

TEST(Plot, DrawsALaterRedMarkerOverAnEarlierGreenOne) {
  auto plot = plotOf(100, 0.5);
  plot->setXYValue(1, 0, 0.5);
  plot->setXYValue(0, 1, 0.5);
  plot->setXYValue(1, 1, 0.1);
  // Two points' step: the second red marker leaves two columns of the first green one.
  EXPECT_EQ(extentOf(pictureOf(*plot), Qt::green, QRect(0, 40, 8, 20)).width(), 2);
}

TEST(Plot, UsesOnlyPureColours) {
  auto plot = plotOf(7, 0.333);
  const QImage picture = pictureOf(*plot);
  for (int x = 0; x < picture.width(); ++x)
    for (int y = 0; y < picture.height(); ++y) {
      const QColor color = colorAt(picture, x, y);
      ASSERT_TRUE(color == QColor(Qt::white) || color == QColor(255, 0, 0) || color == QColor(0, 255, 0))
          << color.name().toStdString();
    }
}

TEST(Plot, DrawsMarkersInStateOneOnly) {
  auto plot = plotOf(4, 0.5);
  for (const int state : {2, 0, -1}) {
    plot->setState(state);
    EXPECT_TRUE(isWhite(pictureOf(*plot))) << state;
  }
  plot->setState(1);
  EXPECT_FALSE(isWhite(pictureOf(*plot)));
}

TEST(Plot, DrawsNoMarkerWithoutPoints) {
  auto plot = plotOf(4, 0.5);
  for (const int points : {0, -3}) {
    plot->setXMax(points);
    EXPECT_TRUE(isWhite(pictureOf(*plot))) << points;
  }
}

TEST(Plot, KeepsItsDataBetweenRedraws) {
  auto plot = plotOf(4, 0.5);
  const QImage first = pictureOf(*plot);
  EXPECT_TRUE(gui::samePixels(pictureOf(*plot), first));
}

TEST(Plot, IgnoresValuesOutsideItsSeriesAndPoints) {
  auto plot = plotOf(256, 0.5);
  const QImage before = pictureOf(*plot);
  constexpr int kLargest = std::numeric_limits<int>::max();
  for (const int series : {-1, 2, kLargest}) plot->setXYValue(series, 0, 0.1);
  for (const int index : {-1, 256, kLargest}) plot->setXYValue(0, index, 0.1);
  EXPECT_TRUE(gui::samePixels(pictureOf(*plot), before));
}

TEST(Plot, DrawsNoMoreThanItsPointsWhenAskedForMore) {
  auto plot = plotOf(256, 0.5);
  plot->setXMax(512);
  // 512 points are 100 / 256 apart, so the 256th is at 5 + 99.6.
  const QRect red = extentOf(pictureOf(*plot), Qt::red);
  EXPECT_NEAR(red.right(), 107, 1);
}

TEST(Plot, RepaintsOnRefreshOnly) {
  auto plot = plotOf(1, 0.2);
  ASSERT_TRUE(gui::showAndActivate(*plot));
  const auto redAt = [&](double value) {
    return gui::screenOf(*plot).pixelColor(5, 100 - int(value * 100)) == QColor(Qt::red);
  };
  ASSERT_TRUE(gui::waitUntil([&] { return redAt(0.2); }));
  plot->setXYValue(0, 0, 0.6);
  gui::processEvents();
  EXPECT_TRUE(redAt(0.2));
  plot->refreshPlot();
  EXPECT_TRUE(gui::waitUntil([&] { return redAt(0.6); }));
  EXPECT_FALSE(redAt(0.2));
}

TEST(Plot, FillsOnlyTheRectangleToRedraw) {
  auto plot = plotOf(1, 0.5);
  plot->setState(0);
  QImage picture(205, 100, QImage::Format_RGB32);
  picture.fill(Qt::blue);
  plot->render(&picture, QPoint(50, 20), QRegion(50, 20, 30, 10), QWidget::RenderFlags());
  EXPECT_EQ(extentOf(picture, Qt::white), QRect(50, 70, 30, 10));
}

}  // namespace
}  // namespace quorvane
