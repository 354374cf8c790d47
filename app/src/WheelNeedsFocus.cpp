#include "WheelNeedsFocus.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QSlider>

namespace quorvane {
namespace {

bool isEditedByTheWheel(const QWidget* widget) {
  return qobject_cast<const QComboBox*>(widget) || qobject_cast<const QSlider*>(widget) ||
         qobject_cast<const QAbstractSpinBox*>(widget);
}

}  // namespace

WheelNeedsFocus::WheelNeedsFocus(QWidget& window) : QObject(&window) {
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (!isEditedByTheWheel(widget)) continue;
    if (widget->focusPolicy() == Qt::WheelFocus) widget->setFocusPolicy(Qt::StrongFocus);
    widget->installEventFilter(this);
  }
}

bool WheelNeedsFocus::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus()) return false;
  event->ignore();
  return true;
}

}  // namespace quorvane
