#include "app/Stepper.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionSpinBox>

namespace quorvane {

Stepper::Stepper(QWidget* parent) : QSpinBox(parent) {
  lineEdit()->hide();
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  connect(this, &QSpinBox::valueChanged, this, [this](int value) {
    // Screen readers are notified of every change, including those by code.
    QAccessibleValueChangeEvent event(this, value);
    QAccessible::updateAccessibility(&event);
  });
}

void Stepper::stepBy(int steps) {
  const int before = value();
  QSpinBox::stepBy(steps);
  if (value() != before) emit stepped(value());
}

QSize Stepper::sizeHint() const {
  const QSize whole = QSpinBox::sizeHint();
  QStyleOptionSpinBox option;
  initStyleOption(&option);
  option.rect = QRect({0, 0}, whole);
  option.direction = Qt::LeftToRight;
  const QRect arrow = style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, this);
  const int frame = whole.width() - 1 - arrow.right();
  return {arrow.width() + 2 * frame, whole.height()};
}

void Stepper::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      return QSpinBox::keyPressEvent(event);
    default:
      // Any other key would edit the hidden text.
      event->ignore();
  }
}

}  // namespace quorvane
