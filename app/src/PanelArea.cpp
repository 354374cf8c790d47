#include "PanelArea.h"

#include <QFocusEvent>
#include <QGroupBox>
#include <QLayout>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

namespace quorvane {
namespace {

/// Clicking a control does not scroll, and neither does a focus that returns with its window or popup.
/// back to its focus.
bool bringsIntoSight(Qt::FocusReason reason) {
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
         reason == Qt::ShortcutFocusReason || reason == Qt::OtherFocusReason;
}

QRect placeIn(const QWidget& panel, const QWidget& widget) {
  return {widget.mapTo(&panel, QPoint(0, 0)), widget.size()};
}

const QWidget* groupOf(const QWidget& control) {
  const QWidget* group = &control;
  while (group && !qobject_cast<const QGroupBox*>(group)) group = group->parentWidget();
  return group ? group : &control;
}

}  // namespace

PanelArea::PanelArea(QWidget& panel) : QScrollArea(panel.parentWidget()) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  panel.setMinimumSize(0, 0);
  panel.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  setWidget(&panel);
  for (QWidget* control : panel.findChildren<QWidget*>())
    if (control->focusPolicy() != Qt::NoFocus) control->installEventFilter(this);
}

int PanelArea::widthForAnyGroup() const {
  int widest = 0;
  for (const QGroupBox* group : widget()->findChildren<QGroupBox*>())
    widest = std::max(widest, group->minimumSizeHint().width());
  return widest + style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
}

bool PanelArea::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn && bringsIntoSight(static_cast<QFocusEvent*>(event)->reason()))
    reveal(*static_cast<QWidget*>(watched));
  if (event->type() == QEvent::LayoutRequest && watched == widget()) emit panelChanged();
  return QScrollArea::eventFilter(watched, event);
}

bool PanelArea::focusNextPrevChild(bool next) {
  // The base class would scroll to the control only, without its group.
  return QWidget::focusNextPrevChild(next);  // NOLINT(bugprone-parent-virtual-call)
}

void PanelArea::reveal(const QWidget& control) {
  const QRect place = placeIn(*widget(), control), group = placeIn(*widget(), *groupOf(control));
  const QSize room = viewport()->size();
  const QRect across = group.width() <= room.width() ? group : place;
  const QRect down = group.height() <= room.height() ? group : place;
  ensureVisible(across.right() + 1, down.bottom() + 1, 0, 0);
  ensureVisible(across.left(), down.top(), 0, 0);
}

}  // namespace quorvane
