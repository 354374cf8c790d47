#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>

#include "view/GraphicalLatticeModelGL.h"

namespace quorvane {

void GraphicalLatticeModelGL::enterFullScreenMode() {
  const bool enters = !fillsScreen_;
  if (enters) becomeWindow();
  // Without a window manager that supports full screen, the geometry alone fills the screen.
  setGeometry(QGuiApplication::primaryScreen()->geometry());
  showFullScreen();
  raise();
  activateWindow();
  setFocus(Qt::OtherFocusReason);
  if (enters) emit fullScreenEntered();
}

void GraphicalLatticeModelGL::becomeWindow() {
  fillsScreen_ = true;
  geometryInWindow_ = geometry();
  predecessorInTabOrder_ = previousInFocusChain();
  // Unlike setParent(nullptr), this keeps the parent, which owns the view.
  setWindowFlags(Qt::Window);
}

void GraphicalLatticeModelGL::exitFullScreenMode() {
  if (!fillsScreen_) return;
  fillsScreen_ = false;
  hide();
  setWindowState(windowState() & ~Qt::WindowFullScreen);
  if (parentWidget() != nullptr) setWindowFlags(Qt::Widget);
  setGeometry(geometryInWindow_);
  windowResized();
  if (predecessorInTabOrder_) setTabOrder(predecessorInTabOrder_, this);
  show();
  window()->activateWindow();
  emit fullScreenLeft();
}

void GraphicalLatticeModelGL::stopAndLeaveFullScreen() {
  if (varMyState == kRunning) stopLatticeModel();
  setFullScreen(0);
  exitFullScreenMode();
}

void GraphicalLatticeModelGL::closeEvent(QCloseEvent* event) {
  if (!fillsScreen_) return QOpenGLWidget::closeEvent(event);
  event->ignore();
  stopAndLeaveFullScreen();
}

void GraphicalLatticeModelGL::hideEvent(QHideEvent* event) {
  // A view that is hidden while the button is down gets no release event.
  mouseUp();
  QOpenGLWidget::hideEvent(event);
}

}  // namespace quorvane
