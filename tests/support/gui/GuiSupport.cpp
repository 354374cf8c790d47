#include "GuiSupport.h"

#include <QApplication>
#include <QScreen>
#include <QTest>
#include <cmath>

namespace quorvane::gui {

bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds deadline) {
  return QTest::qWaitFor(condition, static_cast<int>(deadline.count()));
}

void processEvents() {
  QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

::testing::AssertionResult showAndActivate(QWidget& window) {
  constexpr int deadline = static_cast<int>(kDeadline.count());
  window.show();
  if (!QTest::qWaitForWindowExposed(&window, deadline))
    return ::testing::AssertionFailure() << "the window does not show";
  window.activateWindow();
  if (!QTest::qWaitForWindowActive(&window, deadline))
    return ::testing::AssertionFailure() << "the window does not take the keyboard";
  return ::testing::AssertionSuccess();
}

QImage frameOf(QOpenGLWidget& view) { return view.grabFramebuffer().convertToFormat(QImage::Format_RGB32); }

QImage screenOf(QWidget& window) {
  return window.screen()->grabWindow(window.winId()).toImage().convertToFormat(QImage::Format_RGB32);
}

::testing::AssertionResult samePixels(const QImage& a, const QImage& b) {
  if (a.size() != b.size())
    return ::testing::AssertionFailure()
           << "sizes " << a.width() << " x " << a.height() << " and " << b.width() << " x " << b.height();
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x)
      if (a.pixel(x, y) != b.pixel(x, y))
        return ::testing::AssertionFailure() << "pixel " << x << ", " << y << " from the top: " << std::hex
                                             << a.pixel(x, y) << " and " << b.pixel(x, y);
  return ::testing::AssertionSuccess();
}

QPoint pixelAt(const QWidget& view, double x, double y) {
  return {static_cast<int>(std::floor(x)), static_cast<int>(std::ceil(view.height() - y)) - 1};
}

void press(QWidget& widget, QPoint position) {
  QTest::mousePress(&widget, Qt::LeftButton, Qt::NoModifier, position);
}

void drag(QWidget& widget, QPoint position) {
  // QTest::mouseMove does not report the pressed button.
  const QPointF local = position;
  QMouseEvent event(QEvent::MouseMove, local, widget.mapToGlobal(local), Qt::NoButton, Qt::LeftButton,
                    Qt::NoModifier);
  QApplication::sendEvent(&widget, &event);
}

void release(QWidget& widget, QPoint position) {
  QTest::mouseRelease(&widget, Qt::LeftButton, Qt::NoModifier, position);
}

void click(QWidget& widget, QPoint position) {
  press(widget, position);
  release(widget, position);
}

}  // namespace quorvane::gui
