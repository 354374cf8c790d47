#include <gtest/gtest.h>

#include <QApplication>
#include <QResizeEvent>
#include <QVBoxLayout>

#include "Lattices.h"

namespace quorvane {
namespace {

/// The geometry of the view in its window.
QRect placeInWindow(const GraphicalLatticeModelGL& view) {
  return {view.mapTo(view.window(), QPoint(0, 0)), view.size()};
}

TEST(Placement, LeavesMarginsOf11Left205Below545RightAnd29OnTop) {
  QWidget window;
  auto* view = new GraphicalLatticeModelGL(&window);
  window.resize(1000, 800);
  ASSERT_TRUE(gui::showAndActivate(window));
  ASSERT_EQ(window.size(), QSize(1000, 800));
  EXPECT_EQ(view->size(), QSize(444, 566));
  const QRect place = placeInWindow(*view);
  EXPECT_EQ(place.x(), 11);
  EXPECT_EQ(window.height() - place.y() - place.height(), 205);
  EXPECT_EQ(place.y(), 29);
}

TEST(Placement, FollowsEveryResizeOfTheWindow) {
  QWidget window;
  auto* view = new GraphicalLatticeModelGL(&window);
  window.resize(1000, 800);
  ASSERT_TRUE(gui::showAndActivate(window));
  for (const QSize size : {QSize(1200, 900), QSize(961, 634), QSize(1100, 700)}) {
    window.resize(size);
    const QRect expected(11, 29, size.width() - 556, size.height() - 234);
    EXPECT_TRUE(gui::waitUntil([&] { return placeInWindow(*view) == expected; }));
  }
}

TEST(Placement, NeverGivesTheViewANegativeSize) {
  QWidget window;
  GraphicalLatticeModelGL view(&window);
  window.resize(300, 100);
  view.windowResized();
  EXPECT_EQ(view.geometry(), QRect(11, 29, 0, 0));
  window.resize(557, 100);
  view.windowResized();
  EXPECT_EQ(view.geometry(), QRect(11, 29, 1, 0));
}

TEST(Placement, CountsFromTheWindowAlsoInsideAWidgetThatDoesNotFillIt) {
  QWidget window;
  window.resize(1000, 800);
  auto* panel = new QWidget(&window);
  panel->setGeometry(5, 20, 900, 700);
  auto* view = new GraphicalLatticeModelGL(panel);
  ASSERT_TRUE(gui::showAndActivate(window));
  EXPECT_EQ(placeInWindow(*view), QRect(11, 29, 444, 566));
}

TEST(Placement, FollowsTheWindowToWhichTheViewHasMoved) {
  QWidget first, second;
  first.resize(1000, 800);
  second.resize(900, 700);
  auto* view = new GraphicalLatticeModelGL(&first);
  ASSERT_TRUE(gui::showAndActivate(first));
  ASSERT_TRUE(gui::showAndActivate(second));
  view->setParent(&second);
  view->show();
  second.resize(1100, 900);
  ASSERT_TRUE(gui::waitUntil([&] { return view->geometry() == QRect(11, 29, 544, 666); }));
  view->setGeometry(1, 2, 3, 4);
  QResizeEvent resized(QSize(800, 600), first.size());
  QApplication::sendEvent(&first, &resized);
  EXPECT_EQ(view->geometry(), QRect(1, 2, 3, 4));
  QApplication::sendEvent(&second, &resized);
  EXPECT_NE(view->geometry(), QRect(1, 2, 3, 4));
}

TEST(Placement, FollowsTheWindowToWhichAParentOfTheViewHasMoved) {
  QWidget window;
  auto* panel = new QWidget;
  auto* view = new GraphicalLatticeModelGL(panel);
  auto* layout = new QVBoxLayout(&window);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(panel);
  window.resize(1000, 800);
  ASSERT_TRUE(gui::showAndActivate(window));
  EXPECT_EQ(placeInWindow(*view), QRect(11, 29, 444, 566));
  window.resize(1100, 900);
  EXPECT_TRUE(gui::waitUntil([&] { return placeInWindow(*view) == QRect(11, 29, 544, 666); }));
}

TEST(Placement, DoesNotMoveAViewThatIsAWindowItself) {
  auto view = shownView(321, 123);
  view->windowResized();
  EXPECT_EQ(view->size(), QSize(321, 123));
}

TEST(Placement, IsFollowedByTheFrame) {
  QWidget window;
  auto* view = new GraphicalLatticeModelGL(&window);
  fillLattice(*view, 4, 40, 40, scatteredTypes(4));
  window.resize(1000, 800);
  ASSERT_TRUE(gui::showAndActivate(window));
  window.resize(956, 634);
  ASSERT_TRUE(gui::waitUntil([&] { return view->size() == QSize(400, 400); }));
  EXPECT_TRUE(gui::samePixels(gui::frameOf(*view), opaqueFrame(*view, 400, 400)));
  EXPECT_EQ(view->getWidth(), 400.0);
}

TEST(StartValues, AreThoseOfAModelWithoutALattice) {
  const GraphicalLatticeModelGL view;
  EXPECT_EQ(view.varMyState, 0);
  EXPECT_EQ(view.varPainting, 0);
  EXPECT_EQ(view.varInFullScreen, 0);
  EXPECT_EQ(view.getIMax(), 0);
  EXPECT_EQ(view.getJMax(), 0);
  EXPECT_EQ(view.varPaintbrushColor, 0);
  EXPECT_EQ(view.getNumPixelTypes(), 1);
  EXPECT_EQ(view.getNumRules(), 0);
  EXPECT_TRUE(view.acceptsFirstResponder());
}

}  // namespace
}  // namespace quorvane
