#include <QEvent>
#include <QShowEvent>

#include "view/GraphicalLatticeModelGL.h"

namespace quorvane {
namespace {

// The window's layout leaves these margins: the control panels are on the right and below.
constexpr int kLeft = 11;
constexpr int kRight = 545;
constexpr int kTop = 29;
constexpr int kBottom = 205;

}  // namespace

bool GraphicalLatticeModelGL::acceptsFirstResponder() const { return true; }

void GraphicalLatticeModelGL::viewDidMoveToWindow() {
  if (followedWindow_) followedWindow_->removeEventFilter(this);
  followedWindow_ = isWindow() ? nullptr : window();
  if (followedWindow_) followedWindow_->installEventFilter(this);
}

void GraphicalLatticeModelGL::windowResized() {
  if (!isWindow()) setGeometry(placeInWindow());
}

QRect GraphicalLatticeModelGL::placeInWindow() const {
  const QWidget& frame = *parentWidget()->window();
  const QPoint topLeft = parentWidget()->mapFrom(&frame, QPoint(kLeft, kTop));
  const QSize room(frame.width() - kRight - kLeft, frame.height() - kTop - kBottom);
  return {topLeft, room.expandedTo(QSize(0, 0))};
}

bool GraphicalLatticeModelGL::eventFilter(QObject* watched, QEvent* event) {
  if (watched == followedWindow_ && event->type() == QEvent::Resize) windowResized();
  return QOpenGLWidget::eventFilter(watched, event);
}

void GraphicalLatticeModelGL::showEvent(QShowEvent* event) {
  // The view, or a parent of it, can have been moved to another window only while hidden.
  if (!isWindow() && followedWindow_ != window()) {
    viewDidMoveToWindow();
    windowResized();
  }
  QOpenGLWidget::showEvent(event);
}

}  // namespace quorvane
