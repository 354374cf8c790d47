#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QOpenGLWidget>
#include <QPoint>
#include <QWidget>
#include <chrono>
#include <functional>

/// Shared code of tests with a real window. Programs that link gui_support get their main from it, which
/// creates the application object with the surface format of the lattice view and runs GoogleTest.
namespace quorvane::gui {

inline constexpr std::chrono::milliseconds kDeadline{60'000};

/// Runs the event loop until the condition holds or the deadline passes; returns the last result of the
/// condition.
bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds deadline = kDeadline);

/// Handles all pending events, including posted ones.
void processEvents();

/// Shows a window and waits until it is on the screen and has the focus.
::testing::AssertionResult showAndActivate(QWidget& window);

/// A freshly drawn frame from the view's framebuffer: opaque RGB32, in device pixels, row 0 at the top.
QImage frameOf(QOpenGLWidget& view);

/// The window as shown on the screen, in device pixels.
QImage screenOf(QWidget& window);

/// Success if both pictures have the same size and the same pixels; otherwise reports the first difference.
::testing::AssertionResult samePixels(const QImage& a, const QImage& b);

/// The widget position of the pixel that contains a point in view coordinates, y upwards.
QPoint pixelAt(const QWidget& view, double x, double y);

/// Mouse events with the left button at a position of the widget, delivered like the platform's own.
void press(QWidget& widget, QPoint position);
void drag(QWidget& widget, QPoint position);
void release(QWidget& widget, QPoint position);
void click(QWidget& widget, QPoint position);

/// The only child of a type with an object name; a failure, and null, if there is none.
template <class Child>
Child* child(const QObject& parent, const char* objectName) {
  auto* found = parent.findChild<Child*>(QString::fromLatin1(objectName));
  EXPECT_NE(found, nullptr) << "no such child: " << objectName;
  return found;
}

}  // namespace quorvane::gui
