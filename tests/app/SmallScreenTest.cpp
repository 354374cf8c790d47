#include <QApplication>
#include <QGroupBox>
#include <QProcess>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>

#include "WindowTest.h"
#include "view/GraphicalPlot.h"

// Runs on screens too small for the whole window, and with the device pixel ratio of the environment.

namespace quorvane {
namespace {

/// A window in which every control is shown, but not all are in sight at once.
class SmallScreen : public WindowTest {
 protected:
  void SetUp() override {
    // The smallest screens have no room for the view, so there is no frame to wait for.
    window_ = std::make_unique<MainWindow>();
    ASSERT_TRUE(gui::showAndActivate(*window_));
    ASSERT_TRUE(gui::waitUntil([this] { return !window_->windowHandle()->frameMargins().isNull(); }));
    ASSERT_TRUE(bars() > 0) << "the screen is not small: " << print(available().size());
    showEverything();
  }
  void TearDown() override { QApplication::setFont(desktopFont_); }

  /// By keys, which work for controls out of sight.
  void showEverything() {
    key("buttonInitialiseModel", Qt::Key_Space);
    key("buttonAddNewRule", Qt::Key_Space);
    key("listSelectedRuleFacNum", Qt::Key_Down);
    for (const char* list : {"listNewRulePixelA", "listNewRulePixelB"}) key(list, Qt::Key_Down);
    key("checkMasqueradePixel", Qt::Key_Space);
    gui::processEvents();
    ASSERT_TRUE(visible("colorMasqueradeType") && visible("colorSelectedRuleFacPixel"));
  }

  static std::string print(QSize size) {
    return std::to_string(size.width()) + " x " + std::to_string(size.height());
  }
  QRect available() { return window_->screen()->availableGeometry(); }
  bool isInside() { return available().contains(window_->frameGeometry()); }

  QList<QScrollArea*> panels() {
    QList<QScrollArea*> found;
    for (const char* panel : {"bottomStrip", "rightColumn"})
      found += qobject_cast<QScrollArea*>(control(panel).parentWidget()->parentWidget());
    return found;
  }
  int bars() {
    int shown = 0;
    for (const QScrollArea* panel : panels())
      shown += panel->verticalScrollBar()->isVisible() + panel->horizontalScrollBar()->isVisible();
    return shown;
  }

  QList<QWidget*> controls() {
    QList<QWidget*> found;
    for (const QScrollArea* panel : panels())
      for (QWidget* widget : panel->widget()->findChildren<QWidget*>())
        if (widget->isVisible() && !widget->objectName().isEmpty() && !isPart(*widget)) found += widget;
    return found;
  }
  static bool isPart(const QWidget& widget) {
    return widget.objectName().startsWith("qt_") || qobject_cast<const QGroupBox*>(&widget);
  }
  QList<QWidget*> tabStops() {
    QList<QWidget*> found = controls();
    found.removeIf([](const QWidget* widget) {
      return !widget->isEnabled() || !(widget->focusPolicy() & Qt::TabFocus);
    });
    return found;
  }

  /// The part of a widget that is not clipped by a parent.
  static QRect seen(const QWidget& widget) {
    QRect rect = widget.rect();
    QPoint origin;
    for (const QWidget* child = &widget; !child->isWindow(); child = child->parentWidget()) {
      origin += child->pos();
      rect &= child->parentWidget()->rect().translated(-origin);
    }
    return rect;
  }
  static bool isInSight(const QWidget& widget) { return seen(widget) == widget.rect(); }

  static void turnWheel(QWidget& widget, int notches) {
    const QPoint middle = widget.rect().center();
    QWheelEvent event(middle, widget.mapToGlobal(middle), {}, {0, 120 * notches}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
  }

  /// Turns the wheel over each visible scroll bar until a control is in sight.
  void scrollTo(QScrollArea& panel, const QWidget& control) {
    constexpr int enough = 200;
    const auto place = [&] { return QRect(control.mapTo(panel.viewport(), QPoint(0, 0)), control.size()); };
    for (int turn = 0; turn < enough && !isInSight(control); ++turn) {
      const QRect room = panel.viewport()->rect(), now = place();
      if (panel.verticalScrollBar()->isVisible() && (now.top() < room.top() || now.bottom() > room.bottom()))
        turnWheel(*panel.verticalScrollBar(), now.top() < room.top() ? 1 : -1);
      else if (panel.horizontalScrollBar()->isVisible())
        turnWheel(*panel.horizontalScrollBar(), now.left() < room.left() ? 1 : -1);
    }
  }

  void setDesktopFont(int points, int stretch) {
    QFont font = QApplication::font();
    font.setPointSize(points);
    font.setStretch(stretch);
    QApplication::setFont(font);
    gui::processEvents();
    ASSERT_TRUE(gui::waitUntil([this] {
      const QList<QScrollArea*> all = panels();
      return std::all_of(all.begin(), all.end(), [](const QScrollArea* panel) {
        const QSize needed = panel->widget()->minimumSizeHint();
        return panel->widget()->size().expandedTo(needed) == panel->widget()->size();
      });
    }));
  }

  void expectAllCanBeScrolledIntoSight() {
    EXPECT_GT(controls().size(), 60);
    for (QScrollArea* panel : panels()) {
      for (QScrollBar* bar : {panel->verticalScrollBar(), panel->horizontalScrollBar()}) {
        // In small steps, since three lines per notch are more than the height of a low panel.
        bar->setSingleStep(4);
        EXPECT_TRUE(bar->isVisible() || bar->maximum() == 0);
      }
      for (QWidget* control : panel->widget()->findChildren<QWidget*>()) {
        if (!controls().contains(control)) continue;
        scrollTo(*panel, *control);
        EXPECT_TRUE(isInSight(*control))
            << control->objectName().toStdString() << ", " << print(control->size()) << ", of which "
            << print(seen(*control).size()) << " in sight";
      }
    }
  }

  void expectTheWholePanelsApart() {
    const QRect view = model().geometry();
    EXPECT_FALSE(panels()[0]->geometry().intersects(panels()[1]->geometry()));
    for (const QScrollArea* panel : panels()) {
      EXPECT_TRUE(window_->rect().contains(panel->geometry()));
      EXPECT_FALSE(!view.isEmpty() && panel->geometry().intersects(view));
      EXPECT_FALSE(panel->geometry().intersects(control("statusLine").geometry()));
    }
  }

 private:
  const QFont desktopFont_ = QApplication::font();
};

TEST_F(SmallScreen, TheWindowLiesWithinItsAvailablePart) {
  EXPECT_TRUE(gui::waitUntil([this] { return isInside(); }));
  window_->resize(1, 1);
  gui::processEvents();
  EXPECT_TRUE(isInside());
}

TEST_F(SmallScreen, TheLatticeViewKeepsItsMargins) {
  const QSize room(window_->width() - 545 - 11, window_->height() - 29 - 205);
  EXPECT_EQ(model().geometry(), QRect(QPoint(11, 29), room.expandedTo(QSize(0, 0))));
  expectTheWholePanelsApart();
}

TEST_F(SmallScreen, TheMouseReachesEveryControl) { expectAllCanBeScrolledIntoSight(); }

TEST_F(SmallScreen, TheWheelScrollsThePanelUnderTheMouse) {
  for (QScrollArea* panel : panels()) {
    if (!panel->verticalScrollBar()->isVisible()) continue;
    panel->verticalScrollBar()->setValue(0);
    turnWheel(*panel->viewport(), -1);
    EXPECT_GT(panel->verticalScrollBar()->value(), 0);
  }
}

TEST_F(SmallScreen, TabBringsEveryControlIntoSight) {
  for (const Qt::KeyboardModifiers way : {Qt::NoModifier, Qt::ShiftModifier}) {
    QList<QWidget*> missed = tabStops();
    const qsizetype all = missed.size();
    EXPECT_GT(all, 25);
    for (qsizetype step = 0; step < 2 * all && !missed.isEmpty(); ++step) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, way);
      QWidget* focused = QApplication::focusWidget();
      EXPECT_TRUE(isInSight(*focused)) << focused->objectName().toStdString();
      missed.removeAll(focused);
    }
    for (const QWidget* control : missed)
      ADD_FAILURE() << control->objectName().toStdString() << " is no stop";
  }
}

TEST_F(SmallScreen, AGroupComesIntoSightWithItsControl) {
  for (QWidget* control : tabStops()) {
    control->setFocus(Qt::TabFocusReason);
    const QWidget* group = control;
    while (!qobject_cast<const QGroupBox*>(group)) group = group->parentWidget();
    const QScrollArea& panel = panels()[0]->isAncestorOf(control) ? *panels()[0] : *panels()[1];
    if (group->height() > panel.viewport()->height() || group->width() > panel.viewport()->width()) continue;
    EXPECT_TRUE(isInSight(*group)) << control->objectName().toStdString();
  }
}

TEST_F(SmallScreen, ThePlotComesIntoSightWithTheTabKey) {
  key("buttonAddNewPixel", Qt::Key_PageUp);
  control("plotPopulations").setFocus(Qt::TabFocusReason);
  EXPECT_TRUE(isInSight(control("plotPopulations")));
  EXPECT_TRUE(isInSight(control("labelPlotGreen")));
}

TEST_F(SmallScreen, AMnemonicBringsItsControlIntoSight) {
  key("buttonAddNewRule", Qt::Key_Tab);
  QTest::keyClick(window_.get(), Qt::Key_N, Qt::AltModifier);
  ASSERT_TRUE(gui::waitUntil([this] { return control("textPixelName").hasFocus(); }));
  EXPECT_TRUE(isInSight(control("textPixelName")));
}

TEST_F(SmallScreen, PageKeysOnAButtonScrollItsPanel) {
  const QScrollBar& bar = *panels()[1]->verticalScrollBar();
  key("buttonAddNewPixel", Qt::Key_PageUp);
  const int before = bar.value();
  key("buttonAddNewPixel", Qt::Key_PageDown);
  EXPECT_GT(bar.value(), before);
}

TEST_F(SmallScreen, AClickedControlStaysUnderTheMouse) {
  QScrollArea& panel = *panels()[1];
  QWidget& field = control("textSelectedRuleName");
  panel.ensureWidgetVisible(&field, 0, 0);
  panel.verticalScrollBar()->setValue(panel.verticalScrollBar()->value() + 6);
  const int scrolled = panel.verticalScrollBar()->value();
  gui::click(field, field.rect().center());
  ASSERT_TRUE(field.hasFocus());
  EXPECT_EQ(panel.verticalScrollBar()->value(), scrolled);
}

TEST_F(SmallScreen, TheWindowStaysInsideWhenTheFontGrows) {
  setDesktopFont(18, QFont::Unstretched);
  EXPECT_TRUE(isInside());
  expectTheWholePanelsApart();
  expectAllCanBeScrolledIntoSight();
}

TEST_F(SmallScreen, TheFontIsNotReducedBelowTheReadableSize) {
  setDesktopFont(14, QFont::UltraExpanded);
  EXPECT_EQ(control("buttonRunModel").font().pointSizeF(), 9.0);
  EXPECT_TRUE(isInside());
  EXPECT_TRUE(panels()[1]->horizontalScrollBar()->isVisible());
  expectTheWholePanelsApart();
  for (const QGroupBox* group : control("bottomStrip").findChildren<QGroupBox*>())
    EXPECT_TRUE(
        gui::waitUntil([&] { return group->minimumSizeHint().width() <= panels()[0]->viewport()->width(); }));
}

/// A panel of the desktop along the screen's lower edge.
class Dock {
 public:
  explicit Dock(int devicePixels) {
    widget_.setAttribute(Qt::WA_X11NetWmWindowTypeDock);
    widget_.setGeometry(0, 0, 10, 10);
    widget_.winId();
    const QString strut = QString("0, 0, 0, %1").arg(devicePixels);
    status_ = QProcess::execute("xprop", {"-id", QString::number(widget_.winId()), "-f", "_NET_WM_STRUT",
                                          "32c", "-set", "_NET_WM_STRUT", strut});
    widget_.show();
  }
  bool stands() const { return status_ == 0; }

 private:
  QWidget widget_;
  int status_ = -1;
};

TEST_F(SmallScreen, TheWindowFollowsTheAvailablePart) {
  const QRect before = available();
  const QSize smallest = window_->minimumSize();
  {
    const Dock dock(100);
    ASSERT_TRUE(dock.stands());
    ASSERT_TRUE(gui::waitUntil([&] { return available().height() < before.height(); }));
    EXPECT_TRUE(gui::waitUntil([this] { return isInside(); })) << print(window_->frameGeometry().size());
    EXPECT_LT(window_->minimumHeight(), smallest.height());
    expectTheWholePanelsApart();
  }
  EXPECT_TRUE(gui::waitUntil([&] { return available() == before && window_->minimumSize() == smallest; }));
  EXPECT_TRUE(gui::waitUntil([this] { return isInside() && window_->height() >= window_->minimumHeight(); }));
}

}  // namespace
}  // namespace quorvane
