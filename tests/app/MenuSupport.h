#pragma once

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>

#include "WindowTest.h"

/// Context menus in a test, opened and used as the platform's own events do it.
namespace quorvane::gui {

/// Mouse events of the window that a widget stands in, at the middle of the widget; the window makes the
/// request for a context menu of them.
inline QPoint middleInWindow(const QWidget& widget) {
  return widget.mapTo(widget.window(), widget.rect().center());
}
inline void pressInWindow(const QWidget& widget, Qt::MouseButton button) {
  QTest::mousePress(widget.window()->windowHandle(), button, Qt::NoModifier, middleInWindow(widget));
}
inline void releaseInWindow(const QWidget& widget, Qt::MouseButton button) {
  QTest::mouseRelease(widget.window()->windowHandle(), button, Qt::NoModifier, middleInWindow(widget));
}
inline void rightClick(const QWidget& widget) {
  pressInWindow(widget, Qt::RightButton);
  releaseInWindow(widget, Qt::RightButton);
}

/// The request that the platform makes of the menu key.
inline void pressMenuKey(QWidget& widget) {
  const QPoint middle = widget.rect().center();
  QContextMenuEvent request(QContextMenuEvent::Keyboard, middle, widget.mapToGlobal(middle));
  QApplication::sendEvent(&widget, &request);
}

/// The menu that is open, once there is one; null if none comes.
inline QMenu* openMenu() {
  waitUntil([] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr; });
  return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

/// What a menu shows: the text of each entry and whether it is enabled.
inline QList<QPair<QString, bool>> entriesOf(const QMenu& menu) {
  QList<QPair<QString, bool>> entries;
  for (const QAction* action : menu.actions())
    if (!action->isSeparator()) entries += {action->text().remove('&'), action->isEnabled()};
  return entries;
}

/// Clicks an entry of an open menu.
inline void choose(QMenu& menu, const char* actionName) {
  auto* action = menu.findChild<QAction*>(QString::fromLatin1(actionName));
  ASSERT_NE(action, nullptr) << actionName;
  QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier, menu.actionGeometry(action).center());
}

}  // namespace quorvane::gui
