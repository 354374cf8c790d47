#include "view/GraphicalLatticeModelGL.h"

#include <QGuiApplication>
#include <QMetaObject>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions_2_1>
#include <QOpenGLVersionFunctionsFactory>
#include <QTimer>

#include "view/HeldSpaceBar.h"

namespace quorvane {
namespace {

bool contextCanBeHad(const QSurfaceFormat& format) {
  QOpenGLContext context;
  context.setFormat(format);
  if (!context.create()) return false;
  QOffscreenSurface surface;
  surface.setFormat(context.format());
  surface.create();
  if (!context.makeCurrent(&surface)) return false;
  auto* gl = QOpenGLVersionFunctionsFactory::get<QOpenGLFunctions_2_1>(&context);
  return gl != nullptr && gl->initializeOpenGLFunctions();
}

bool platformShowsOpenGLWidgets() {
  // The offscreen platform creates contexts, but crashes when a QOpenGLWidget is shown.
  return QGuiApplication::platformName() != QLatin1String("offscreen");
}

}  // namespace

GraphicalLatticeModelGL::GraphicalLatticeModelGL(QWidget* parent) : QOpenGLWidget(parent) {
  setFormat(surfaceFormat());
  if (acceptsFirstResponder()) setFocusPolicy(Qt::StrongFocus);
  connect(this, &QOpenGLWidget::frameSwapped, this, [this] { pacer_.frameEnds(); });
  HeldSpaceBar::watchApplication();
  viewDidMoveToWindow();
  awakeFromNib();
}

GraphicalLatticeModelGL::~GraphicalLatticeModelGL() { endRunLoops(); }

QSurfaceFormat GraphicalLatticeModelGL::surfaceFormat() {
  QSurfaceFormat format;
  format.setRenderableType(QSurfaceFormat::OpenGL);
  format.setVersion(2, 1);
  return format;
}

bool GraphicalLatticeModelGL::canDraw() {
  return platformShowsOpenGLWidgets() && contextCanBeHad(surfaceFormat());
}

void GraphicalLatticeModelGL::requestRedraw() { update(); }

void GraphicalLatticeModelGL::latticeReplaced() { emit latticeRenewed(); }

void GraphicalLatticeModelGL::requestRedrawFromRunLoop() {
  // A run loop faster than the screen must not fill the event queue.
  if (redrawPending_.exchange(true)) return;
  const auto redraw = [this] {
    redrawPending_ = false;
    update();
  };
  const auto redrawInTime = [this, redraw] {
    const auto pause = pacer_.pauseBeforeNextFrame();
    if (pause.count() == 0) return redraw();
    QTimer::singleShot(pause, Qt::PreciseTimer, this, redraw);
  };
  QMetaObject::invokeMethod(this, redrawInTime, Qt::QueuedConnection);
}

}  // namespace quorvane
