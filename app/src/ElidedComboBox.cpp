#include "app/ElidedComboBox.h"

#include <QStyleOptionComboBox>
#include <QStylePainter>

namespace quorvane {

void ElidedComboBox::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  painter.setPen(palette().color(QPalette::Text));
  QStyleOptionComboBox option;
  initStyleOption(&option);
  painter.drawComplexControl(QStyle::CC_ComboBox, option);
  // Styles leave one point on either side of the text.
  const int room =
      style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this).width() - 2;
  option.currentText = fontMetrics().elidedText(option.currentText, Qt::ElideRight, room);
  painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

}  // namespace quorvane
