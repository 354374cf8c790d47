#include "WindowTest.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QTest>
#include <cmath>

namespace quorvane {

void WindowTest::SetUp() {
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  window_ = std::make_unique<MainWindow>();
  ASSERT_TRUE(gui::showAndActivate(*window_));
  ASSERT_TRUE(gui::waitUntil([this] { return model().getWidth() > 0.0; }));
}

QString WindowTest::text(const char* name) {
  QWidget& widget = control(name);
  if (const auto* label = qobject_cast<QLabel*>(&widget)) return label->text();
  return dynamic_cast<QLineEdit&>(widget).text();
}

QStringList WindowTest::items(const char* listName) {
  QStringList titles;
  for (int item = 0; item < list(listName).count(); ++item) titles += list(listName).itemText(item);
  return titles;
}

void WindowTest::click(const char* name) {
  QWidget& widget = control(name);
  ASSERT_TRUE(widget.isVisible() && widget.isEnabled()) << name;
  // At the left end, since only the indicator and the text of a check box accept clicks.
  gui::click(widget, QPoint(8, widget.height() / 2));
}

void WindowTest::choose(const char* listName, const QString& item) {
  QComboBox& box = list(listName);
  ASSERT_TRUE(box.isVisible() && box.isEnabled()) << listName;
  const int index = box.findText(item);
  ASSERT_GE(index, 0) << item.toStdString() << " is not in " << listName;
  gui::click(box, box.rect().center());
  QAbstractItemView* view = box.view();
  ASSERT_TRUE(gui::waitUntil([view] { return view->isVisible(); }));
  QTest::keyClick(view, Qt::Key_Home);
  for (int step = 0; step < index; ++step) QTest::keyClick(view, Qt::Key_Down);
  QTest::keyClick(view, Qt::Key_Return);
  ASSERT_TRUE(gui::waitUntil([view] { return !view->isVisible(); }));
}

void WindowTest::type(const char* field, const QString& text) {
  QWidget& widget = control(field);
  ASSERT_TRUE(widget.isVisible() && widget.isEnabled()) << field;
  gui::click(widget, widget.rect().center());
  QTest::keyClick(&widget, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&widget, Qt::Key_Delete);
  QTest::keyClicks(&widget, text);
}

void WindowTest::enter(const char* field, const QString& text) {
  type(field, text);
  QTest::keyClick(&control(field), Qt::Key_Return);
}

void WindowTest::key(const char* name, int key, int times, Qt::KeyboardModifiers modifiers) {
  QWidget& widget = control(name);
  ASSERT_TRUE(widget.isVisible() && widget.isEnabled()) << name;
  widget.setFocus(Qt::TabFocusReason);
  for (int time = 0; time < times; ++time) QTest::keyClick(&widget, static_cast<Qt::Key>(key), modifiers);
}

void WindowTest::slideTo(const char* name, double value) {
  ASSERT_EQ(slider(name).value(), 0.0);
  const int step = slider(name).singleStep();
  const int thousandths = static_cast<int>(std::lround(std::abs(value) * 1000.0));
  const int way = value < 0.0 ? Qt::Key_Left : Qt::Key_Right;
  key(name, way, thousandths / step);
  key(name, way, thousandths % step, Qt::ShiftModifier);
}

void WindowTest::initialise(int numTypes) {
  const int steps = numTypes - get<Stepper>("stepperNumPixelTypes").value();
  key("stepperNumPixelTypes", steps > 0 ? Qt::Key_Up : Qt::Key_Down, std::abs(steps));
  click("buttonInitialiseModel");
  ASSERT_EQ(model().getNumPixelTypes(), numTypes);
}

void WindowTest::addRule(const QString& name, const QString& ruleType, const QString& endA,
                         const QString& endB) {
  type("textNewRuleName", name);
  choose("listNewRuleType", ruleType);
  choose("listNewRulePixelA", endA);
  choose("listNewRulePixelB", endB);
  click("buttonAddNewRule");
}

Rgb WindowTest::colorOf(int type) {
  return {model().getPixelColorR(type), model().getPixelColorG(type), model().getPixelColorB(type)};
}

}  // namespace quorvane
