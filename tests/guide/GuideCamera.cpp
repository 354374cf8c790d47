#include "GuideCamera.h"

#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <stdexcept>

#include "../app/FilePanel.h"
#include "GuiSupport.h"

namespace quorvane {
namespace {

void require(bool done, const QString& what) {
  if (!done) throw std::runtime_error(what.toStdString());
}

}  // namespace

GuideCamera::GuideCamera() : window_(std::make_unique<MainWindow>()) {
  require(static_cast<bool>(gui::showAndActivate(*window_)), "showing the window");
  require(gui::waitUntil([this] { return model().getWidth() > 0.0; }), "drawing the first frame");
}

QWidget& GuideCamera::control(const char* name) {
  auto* found = window_->findChild<QWidget*>(QString::fromLatin1(name));
  require(found, QString("finding ") + name);
  return *found;
}

void GuideCamera::open(const QString& path) {
  auto& button = dynamic_cast<QAbstractButton&>(control("buttonOpenSystem"));
  require(gui::choosePath(button, path) && model().varMyState == kStopped, "opening " + path);
}

void GuideCamera::openRefused(const QString& path) {
  auto& button = dynamic_cast<QAbstractButton&>(control("buttonOpenSystem"));
  require(gui::choosePath(button, path) && model().varMyState == kNotInitialised, "refusing " + path);
}

void GuideCamera::click(const char* button) {
  QWidget& widget = control(button);
  require(widget.isVisible() && widget.isEnabled(), QString("clicking ") + button);
  gui::click(widget, QPoint(8, widget.height() / 2));
}

void GuideCamera::choose(const char* list, const QString& item) {
  auto& box = dynamic_cast<QComboBox&>(control(list));
  const int index = box.findText(item);
  require(index >= 0 && box.isEnabled(), QString("choosing ") + item);
  box.setFocus(Qt::TabFocusReason);
  QTest::keyClick(&box, Qt::Key_Home);
  for (int step = 0; step < index; ++step) QTest::keyClick(&box, Qt::Key_Down);
  require(box.currentIndex() == index, QString("choosing ") + item);
}

void GuideCamera::type(const char* field, const QString& text) {
  QWidget& widget = control(field);
  gui::click(widget, widget.rect().center());
  QTest::keyClick(&widget, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(&widget, text);
  QTest::keyClick(&widget, Qt::Key_Return);
}

void GuideCamera::press(const char* name, Qt::Key key, int times) {
  QWidget& widget = control(name);
  widget.setFocus(Qt::TabFocusReason);
  for (int time = 0; time < times; ++time) QTest::keyClick(&widget, key);
}

void GuideCamera::sweep(int count) {
  model().runSweeps(count);
  model().update();
}

void GuideCamera::runTo(int sweeps) {
  click("buttonRunModel");
  constexpr std::chrono::minutes deadline{2};
  require(gui::waitUntil([&] { return model().sweepsDone() >= sweeps; }, deadline), "running");
}

void GuideCamera::paintStroke(std::initializer_list<QPointF> sites) {
  const double spacing = model().getWidth() / model().getIMax();
  bool pressed = false;
  for (const QPointF& site : sites) {
    const QPoint pixel = gui::pixelAt(model(), (site.x() + 0.5) * spacing, (site.y() + 0.5) * spacing);
    pressed ? gui::drag(model(), pixel) : gui::press(model(), pixel);
    pressed = true;
  }
}

void GuideCamera::endStroke() { gui::release(model(), QPoint(1, 1)); }

void GuideCamera::settle() {
  // Clicked buttons and the status line update with a delay.
  QTest::qWait(600);
}

QImage GuideCamera::wholeWindow() {
  settle();
  return gui::screenOf(*window_);
}

QImage GuideCamera::partOfWindow(const QRect& part) { return wholeWindow().copy(part); }

QImage GuideCamera::partOfWindow(const char* name) {
  QWidget& widget = control(name);
  return partOfWindow(QRect(widget.mapTo(window_.get(), QPoint(0, 0)), widget.size()));
}

}  // namespace quorvane
