#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QOpenGLWidget>
#include <QPoint>
#include <QWidget>
#include <chrono>
#include <functional>

/// What tests with a real window share. A program that links gui_support gets its main from it, which makes
/// the application object with the surface format that the lattice view needs and then runs GoogleTest.
namespace quorvane::gui {

inline constexpr std::chrono::milliseconds kDeadline{10'000};

/// Runs the event loop until the condition holds or the deadline passes; the condition's last answer.
bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds deadline = kDeadline);

/// Handles every event that waits, posted ones too.
void processEvents();

/// Shows a window and waits until it is on the screen and takes the keyboard.
::testing::AssertionResult showAndActivate(QWidget& window);

/// The frame as the view's framebuffer holds it after a fresh drawing: opaque RGB32, in device pixels, row 0
/// on top.
QImage frameOf(QOpenGLWidget& view);

/// What the screen shows of a window, in device pixels.
QImage screenOf(QWidget& window);

/// Success if both pictures have the same size and the same colour at every pixel, else names the first that
/// differs.
::testing::AssertionResult samePixels(const QImage& a, const QImage& b);

/// The widget's position of a point given in view coordinates, y upwards: the pixel that the point lies in.
QPoint pixelAt(const QWidget& view, double x, double y);

/// Mouse events with the left button at a position of the widget, delivered as the platform's own are.
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
