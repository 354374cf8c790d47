#include "ScreenFit.h"

#include <QEvent>
#include <QStyle>
#include <QWindow>
#include <algorithm>

namespace quorvane {

ScreenFit::ScreenFit(QWidget& window) : window_(window), lastFrame_(frame()) {
  window_.installEventFilter(this);
}

void ScreenFit::setSmallestSize(QSize size) {
  if (size == smallest_) return;
  smallest_ = size;
  fit();
}

bool ScreenFit::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::Show:
      connect(window_.windowHandle(), &QWindow::screenChanged, this, &ScreenFit::followScreen,
              Qt::UniqueConnection);
      followScreen();
      break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowActivate:
      // A window manager reports the size of the frame some time after the window is shown.
      if (frame() != lastFrame_) {
        lastFrame_ = frame();
        fit();
      }
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

QMargins ScreenFit::frame() const {
  const QWindow* handle = window_.windowHandle();
  const QMargins known = handle ? handle->frameMargins() : QMargins();
  if (!known.isNull()) return known;
  constexpr int side = 4;
  return {side, window_.style()->pixelMetric(QStyle::PM_TitleBarHeight), side, side};
}

void ScreenFit::followScreen() {
  if (screen_ == window_.screen()) return;
  if (screen_) screen_->disconnect(this);
  screen_ = window_.screen();
  connect(screen_, &QScreen::availableGeometryChanged, this, &ScreenFit::fit);
  // Not moved, since the user may be dragging it to another screen.
  limitSize();
}

void ScreenFit::limitSize() {
  const QSize room = window_.screen()->availableGeometry().marginsRemoved(frame()).size();
  window_.setMinimumSize(smallest_.boundedTo(room));
  if (!window_.isMaximized() && !window_.isFullScreen()) window_.resize(window_.size().boundedTo(room));
}

void ScreenFit::moveInside() {
  if (!window_.isVisible() || window_.isMaximized() || window_.isFullScreen()) return;
  const QRect available = window_.screen()->availableGeometry();
  const QSize size = window_.size().grownBy(frame());
  const QPoint place = window_.pos();
  const QPoint inside(std::max(available.left(), std::min(place.x(), available.right() + 1 - size.width())),
                      std::max(available.top(), std::min(place.y(), available.bottom() + 1 - size.height())));
  if (inside != place) window_.move(inside);
}

void ScreenFit::fit() {
  limitSize();
  moveInside();
}

}  // namespace quorvane
