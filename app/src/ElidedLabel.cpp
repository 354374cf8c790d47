#include "app/ElidedLabel.h"

#include <QHelpEvent>
#include <QStyle>
#include <QStylePainter>
#include <QToolTip>
#include <algorithm>

namespace quorvane {

QSize ElidedLabel::minimumSizeHint() const { return {0, QLabel::minimumSizeHint().height()}; }

QRect ElidedLabel::textRect() const { return contentsRect().adjusted(std::max(indent(), 0), 0, 0, 0); }

QString ElidedLabel::elidedText() const {
  return fontMetrics().elidedText(text(), Qt::ElideRight, textRect().width());
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || elidedText() == text()) return QLabel::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  QToolTip::showText(help->globalPos(), text().toHtmlEscaped(), this);
  return true;
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  painter.drawItemText(textRect(), static_cast<int>(alignment()), palette(), isEnabled(), elidedText(),
                       foregroundRole());
}

}  // namespace quorvane
