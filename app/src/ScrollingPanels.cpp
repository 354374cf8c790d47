#include "ScrollingPanels.h"

#include <QEvent>
#include <algorithm>

#include "PanelArea.h"
#include "ui_MainWindow.h"

namespace quorvane {

ScrollingPanels::ScrollingPanels(Ui::MainWindow& ui)
    : window_(*ui.centralwidget->window()),
      statusLine_(*ui.statusLine),
      grid_(*ui.layoutWindow),
      leastView_(ui.spacerLatticeView->sizeHint()),
      columnWidth_(ui.rightColumn->maximumWidth()),
      stripHeight_(ui.bottomStrip->maximumHeight()),
      strip_(new PanelArea(*ui.bottomStrip)),
      column_(new PanelArea(*ui.rightColumn)) {
  // The layout gives the view all remaining space; its minimum follows from the window's minimum size.
  ui.spacerLatticeView->changeSize(0, 0, QSizePolicy::Minimum, QSizePolicy::Expanding);
  column_->setFixedWidth(columnWidth_);
  strip_->setFixedHeight(stripHeight_);
  grid_.addWidget(column_, 0, 1, 3, 1);
  grid_.addWidget(strip_, 2, 0);
  for (PanelArea* area : {column_, strip_}) {
    connect(area, &PanelArea::panelChanged, this, &ScrollingPanels::arrange);
    connect(area, &PanelArea::panelChanged, this, &ScrollingPanels::smallestSizeChanged);
  }
  window_.installEventFilter(this);
}

QSize ScrollingPanels::smallestSize() const {
  const QSize column = column_->widget()->layout()->totalMinimumSize();
  const QSize strip = strip_->widget()->layout()->totalMinimumSize();
  return {std::max(leastView_.width(), strip.width()) + columnWidth_,
          std::max(statusLine_.maximumHeight() + leastView_.height() + stripHeight_, column.height())};
}

bool ScrollingPanels::fitTheMargins() const {
  const QLayout& column = *column_->widget()->layout();
  const QLayout& strip = *strip_->widget()->layout();
  const int stripWidth = smallestSize().width() - columnWidth_;
  return column.totalMinimumSize().width() <= columnWidth_ &&
         std::max(strip.totalMinimumSize().height(), strip.totalMinimumHeightForWidth(stripWidth)) <=
             stripHeight_;
}

bool ScrollingPanels::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &window_ && event->type() == QEvent::Resize) arrange();
  return QObject::eventFilter(watched, event);
}

void ScrollingPanels::arrange() {
  const int width = window_.width(), height = window_.height() - statusLine_.maximumHeight();
  const bool stacked = width - columnWidth_ < strip_->widthForAnyGroup();
  column_->setFixedWidth(std::min(columnWidth_, width));
  strip_->setFixedHeight(stacked ? std::min(stripHeight_, height / 2) : stripHeight_);
  if (stacked == stacked_) return;
  stacked_ = stacked;
  for (QWidget* part : {&statusLine_, static_cast<QWidget*>(column_), static_cast<QWidget*>(strip_)})
    grid_.removeWidget(part);
  grid_.addWidget(&statusLine_, 0, 0, 1, stacked ? 2 : 1);
  grid_.addWidget(column_, stacked ? 1 : 0, 1, stacked ? 1 : 3, 1);
  grid_.addWidget(strip_, 2, 0, 1, stacked ? 2 : 1);
  // The column has its own distance to the strip, but not to the edge of the window.
  QLayout& strip = *strip_->widget()->layout();
  QMargins margins = strip.contentsMargins();
  margins.setRight(stacked ? margins.left() : 0);
  strip.setContentsMargins(margins);
}

}  // namespace quorvane
