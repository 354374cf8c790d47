#pragma once

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>

#include "WindowTest.h"

/// Opens and uses context menus in tests with the platform's events.
namespace quorvane::gui {

/// Sends mouse events at the centre of a widget to its window, which makes the request for a context menu
/// from them.
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

/// Sends the request that the platform makes for the menu key.
inline void pressMenuKey(QWidget& widget) {
  const QPoint middle = widget.rect().center();
  QContextMenuEvent request(QContextMenuEvent::Keyboard, middle, widget.mapToGlobal(middle));
  QApplication::sendEvent(&widget, &request);
}

/// The open menu, once there is one; null if none opens.
inline QMenu* openMenu() {
  waitUntil([] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr; });
  return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

/// The content of a menu: the text of each entry and whether it is enabled.
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
