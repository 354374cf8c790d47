#pragma once

#include <QShortcut>
#include <QWidget>

namespace quorvane {

/// Lets Shift+F10 ask for a widget's context menu as the menu key does, which the toolkit knows on some
/// desktops only. Of use while the widget has the keyboard.
inline void openMenuByShiftF10(QWidget& widget) {
  auto* shortcut = new QShortcut(Qt::SHIFT | Qt::Key_F10, &widget);
  shortcut->setContext(Qt::WidgetShortcut);
  QObject::connect(shortcut, &QShortcut::activated, &widget,
                   [&widget] { emit widget.customContextMenuRequested(widget.rect().center()); });
}

}  // namespace quorvane
