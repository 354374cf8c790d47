#pragma once

#include <QShortcut>
#include <QWidget>

namespace quorvane {

/// Makes Shift+F10 ask for a widget's context menu like the menu key, which Qt supports only on some
/// desktops. Works while the widget has the focus.
inline void openMenuByShiftF10(QWidget& widget) {
  auto* shortcut = new QShortcut(Qt::SHIFT | Qt::Key_F10, &widget);
  shortcut->setContext(Qt::WidgetShortcut);
  QObject::connect(shortcut, &QShortcut::activated, &widget,
                   [&widget] { emit widget.customContextMenuRequested(widget.rect().center()); });
}

}  // namespace quorvane
