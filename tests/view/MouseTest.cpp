#include <gtest/gtest.h>

#include <QTest>

#include "Lattices.h"

namespace quorvane {
namespace {

std::unique_ptr<GraphicalLatticeModelGL> squareToPaintOn(int sites) {
  auto view = shownView(100, 100);
  fillLattice(*view, 2, sites, sites, [](int, int) { return 0; });
  view->setPaintbrushColor(1);
  gui::frameOf(*view);
  return view;
}

int numPaintedSites(const LatticeModel& model) {
  int painted = 0;
  for (int i = 0; i < model.getIMax(); ++i)
    for (int j = 0; j < model.getJMax(); ++j) painted += model.getSiteValue(i, j);
  return painted;
}

TEST(Mouse, PaintsTheSiteShownAtThePixel) {
  auto view = squareToPaintOn(30);
  for (int k = 0; k < 100; ++k)
    for (const QPoint pixel : {QPoint(k, 42), QPoint(57, k)}) {
      fillLattice(*view, 2, 30, 30, [](int, int) { return 0; });
      gui::click(*view, pixel);
      ASSERT_EQ(numPaintedSites(*view), 1);
      ASSERT_EQ(gui::frameOf(*view).pixelColor(pixel), QColor(Qt::red)) << pixel.x() << ", " << pixel.y();
    }
}

TEST(Mouse, PaintsASquareUpToItsLastPixelOnEverySide) {
  auto view = squareToPaintOn(10);
  for (const QPointF corner : {QPointF(42, 72), QPointF(49, 72), QPointF(42, 79), QPointF(49, 79)}) {
    view->setSiteValue(4, 7, 0);
    gui::click(*view, gui::pixelAt(*view, corner.x(), corner.y()));
    EXPECT_EQ(view->getSiteValue(4, 7), 1) << corner.x() << ", " << corner.y();
    EXPECT_EQ(numPaintedSites(*view), 1);
  }
}

TEST(Mouse, CountsRowsFromTheBottom) {
  auto view = squareToPaintOn(10);
  gui::click(*view, QPoint(25, 95));
  EXPECT_EQ(view->getSiteValue(2, 0), 1);
}

TEST(Mouse, DragsPaintUntilTheRelease) {
  auto view = squareToPaintOn(10);
  gui::press(*view, QPoint(5, 5));
  gui::drag(*view, QPoint(45, 5));
  gui::drag(*view, QPoint(-20, 130));
  EXPECT_EQ(view->varPainting, 1);
  gui::release(*view, QPoint(45, 5));
  EXPECT_EQ(view->varPainting, 0);
  gui::drag(*view, QPoint(75, 5));
  EXPECT_EQ(view->getSiteValue(0, 9), 1);
  EXPECT_EQ(view->getSiteValue(4, 9), 1);
  EXPECT_EQ(view->getSiteValue(0, 0), 1);
  EXPECT_EQ(numPaintedSites(*view), 3);
}

TEST(Mouse, TheSecondClickOfADoubleClickPaintsToo) {
  auto view = squareToPaintOn(10);
  const QPointF position(5, 95);
  QMouseEvent second(QEvent::MouseButtonDblClick, position, view->mapToGlobal(position), Qt::LeftButton,
                     Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(view.get(), &second);
  EXPECT_EQ(view->varPainting, 1);
  EXPECT_EQ(view->getSiteValue(0, 0), 1);
  gui::release(*view, position.toPoint());
  EXPECT_EQ(view->varPainting, 0);
}

TEST(Mouse, OnlyTheLeftButtonPaints) {
  auto view = squareToPaintOn(10);
  for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
    QTest::mousePress(view.get(), button, Qt::NoModifier, QPoint(5, 5));
    EXPECT_EQ(view->varPainting, 0);
    QTest::mouseRelease(view.get(), button, Qt::NoModifier, QPoint(5, 5));
  }
  EXPECT_EQ(numPaintedSites(*view), 0);
}

TEST(Mouse, AnotherButtonDoesNotEndAStroke) {
  auto view = squareToPaintOn(10);
  gui::press(*view, QPoint(5, 5));
  QTest::mousePress(view.get(), Qt::RightButton, Qt::NoModifier, QPoint(5, 5));
  QTest::mouseRelease(view.get(), Qt::RightButton, Qt::NoModifier, QPoint(5, 5));
  EXPECT_EQ(view->varPainting, 1);
  gui::release(*view, QPoint(5, 5));
  EXPECT_EQ(view->varPainting, 0);
}

}  // namespace
}  // namespace quorvane
