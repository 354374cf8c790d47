#include "app/PromptEdit.h"

#include <QFocusEvent>

namespace quorvane {

void PromptEdit::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  firstPress_ = event->reason() == Qt::MouseFocusReason;
}

void PromptEdit::mousePressEvent(QMouseEvent* event) {
  QLineEdit::mousePressEvent(event);
  if (firstPress_ && text() == prompt_) selectAll();
  firstPress_ = false;
}

}  // namespace quorvane
