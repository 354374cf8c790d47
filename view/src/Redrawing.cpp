#include <QMetaObject>
#include <QOpenGLFramebufferObjectFormat>
#include <QOpenGLFunctions_2_1>
#include <QScopedValueRollback>
#include <QWindow>

#include "FrameInSlices.h"
#include "view/GraphicalLatticeModelGL.h"

// A redraw that the main thread requests is one whole frame, drawn at once. The frames of a run are drawn in
// slices between events.

namespace quorvane {

void GraphicalLatticeModelGL::requestRedraw() {
  // Its first columns may show what was before the change.
  if (runFrame_) runFrame_->drop();
  update();
}

void GraphicalLatticeModelGL::requestRedrawFromRunLoop() {
  // A run loop faster than the screen must not fill the event queue.
  if (redrawPending_.exchange(true)) return;
  QMetaObject::invokeMethod(this, &GraphicalLatticeModelGL::awaitTurn, Qt::QueuedConnection);
}

void GraphicalLatticeModelGL::awaitTurn() {
  if (!turn_.isActive()) turn_.start(pacer_.pauseBeforeNextFrame());
}

void GraphicalLatticeModelGL::takeTurn() {
  const bool underWay = runFrame_ && runFrame_->underWay();
  if (!underWay && !redrawPending_.exchange(false)) return;
  if (!drawSlice()) return requestRedraw();
  if (runFrame_->whole()) showRunFrame();
  if (runFrame_->underWay())
    turn_.start(0);
  else if (redrawPending_)
    awaitTurn();
}

bool GraphicalLatticeModelGL::drawSlice() {
  if (!runFrame_ || !isOnScreen()) return false;
  makeCurrent();
  QOpenGLFunctions_2_1* gl = currentFunctions();
  if (gl == nullptr || !runFrame_->bind(pixels(), framebufferFormat())) return false;
  if (runFrame_->underWay()) {
    setViewport(*gl);
  } else {
    pacer_.frameBegins();
    runFrame_->begin(beginFrame(*gl));
  }
  runFrame_->drawSlice(*gl);
  runFrame_->release();
  return true;
}

bool GraphicalLatticeModelGL::isOnScreen() const {
  const QWindow* shownIn = window()->windowHandle();
  return isVisible() && !size().isEmpty() && shownIn != nullptr && shownIn->isExposed();
}

void GraphicalLatticeModelGL::showRunFrame() {
  const QScopedValueRollback showing(showsRunFrame_, true);
  repaint();
  runFrame_->drop();
}

}  // namespace quorvane
