#include <QtTest/qtestspontaneevent.h>

#include <QAbstractSpinBox>
#include <QTest>

#include "SystemReport.h"
#include "WindowTest.h"

namespace quorvane {
namespace {

/// Turns the wheel by one notch over a widget's centre, through the window as the window system does.
void turnWheel(QWidget& widget, int notches) {
  QWidget& window = *widget.window();
  const QPoint position = widget.mapTo(&window, widget.rect().center());
  QWheelEvent event(position, window.mapToGlobal(QPointF(position)), {}, {0, 120 * notches}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  // Synthetic events are not propagated to parents.
  QSpontaneKeyEvent::setSpontaneous(&event);
  qApp->notify(window.windowHandle(), &event);
  gui::processEvents();
}

/// Counts the wheel events that reach a widget, including those that its children ignored.
class WheelCount : public QObject {
 public:
  explicit WheelCount(QWidget& widget) { widget.installEventFilter(this); }
  int count = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Wheel) ++count;
    return false;
  }
};

class Wheel : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    initialise(3);
    addRule("grow", "Irreversible Flip", kAny, "1 - Pixel");
    choose("listSelectedRuleFacNum", "3");
    slideTo("sliderSelectedRuleParam", 0.5);
    click("checkMasqueradePixel");
    control("buttonRunModel").setFocus();
  }
  template <class Control>
  QList<Control*> usable() {
    QList<Control*> found;
    for (Control* control : window_->findChildren<Control*>())
      if (control->isVisible() && control->isEnabled()) found += control;
    return found;
  }
  /// Every control that the wheel can edit.
  QList<QWidget*> editable() {
    QList<QWidget*> all;
    for (QWidget* list : usable<QComboBox>()) all += list;
    for (QWidget* slider : usable<QSlider>()) all += slider;
    for (QWidget* box : usable<QAbstractSpinBox>()) all += box;
    return all;
  }
  static QString shownBy(const QWidget& widget) {
    if (const auto* list = qobject_cast<const QComboBox*>(&widget)) return list->currentText();
    if (const auto* slider = qobject_cast<const DoubleSlider*>(&widget))
      return QString::number(slider->value());
    return dynamic_cast<const QAbstractSpinBox&>(widget).text();
  }
};

TEST_F(Wheel, EditsNoControlWithoutTheFocusAndDoesNotMoveTheFocus) {
  const QStringList before = reportSystem(*window_);
  const QList<QWidget*> controls = editable();
  ASSERT_EQ(controls.size(), 15) << "nine lists and six sliders";
  for (QWidget* control : controls)
    for (const int notches : {1, -1}) {
      const QString shown = shownBy(*control);
      turnWheel(*control, notches);
      EXPECT_EQ(shownBy(*control), shown) << control->objectName().toStdString();
      EXPECT_EQ(QApplication::focusWidget(), &this->control("buttonRunModel"))
          << control->objectName().toStdString();
    }
  EXPECT_EQ(reportSystem(*window_), before);
}

TEST_F(Wheel, IsPassedOnToTheParentOfAControlWithoutTheFocus) {
  for (QWidget* control : editable()) {
    WheelCount parent(*control->parentWidget());
    turnWheel(*control, 1);
    EXPECT_EQ(parent.count, 1) << control->objectName().toStdString();
  }
}

TEST_F(Wheel, EditsAControlThatHasTheFocus) {
  control("sliderPixelField").setFocus();
  turnWheel(control("sliderPixelField"), 1);
  EXPECT_GT(model().getPixelField(0), 0.0);
  control("sliderSelectedRuleParam").setFocus();
  turnWheel(control("sliderSelectedRuleParam"), -1);
  EXPECT_LT(model().getRuleParam(0), 0.5);
  control("listPaintType").setFocus();
  turnWheel(control("listPaintType"), -1);
  EXPECT_EQ(model().varPaintbrushColor, 1);
}

class WheelAtTheStart : public WindowTest {};

TEST_F(WheelAtTheStart, StepsTheStepperOnlyWithTheFocus) {
  control("buttonInitialiseModel").setFocus();
  turnWheel(control("stepperNumPixelTypes"), 1);
  EXPECT_EQ(text("textNumPixelTypes"), "2");
  EXPECT_EQ(QApplication::focusWidget(), &control("buttonInitialiseModel"));
  control("stepperNumPixelTypes").setFocus();
  turnWheel(control("stepperNumPixelTypes"), 1);
  EXPECT_EQ(text("textNumPixelTypes"), "3");
}

}  // namespace
}  // namespace quorvane
