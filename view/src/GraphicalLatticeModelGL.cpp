#include "view/GraphicalLatticeModelGL.h"

#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions_2_1>
#include <QOpenGLVersionFunctionsFactory>

#include "FrameInSlices.h"
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
  turn_.setSingleShot(true);
  turn_.setTimerType(Qt::PreciseTimer);
  connect(&turn_, &QTimer::timeout, this, &GraphicalLatticeModelGL::takeTurn);
  HeldSpaceBar::watchApplication();
  viewDidMoveToWindow();
  awakeFromNib();
}

GraphicalLatticeModelGL::~GraphicalLatticeModelGL() {
  endRunLoops();
  makeCurrent();
  runFrame_.reset();
}

QSurfaceFormat GraphicalLatticeModelGL::surfaceFormat() {
  QSurfaceFormat format;
  format.setRenderableType(QSurfaceFormat::OpenGL);
  format.setVersion(2, 1);
  return format;
}

bool GraphicalLatticeModelGL::canDraw() {
  return platformShowsOpenGLWidgets() && contextCanBeHad(surfaceFormat());
}

void GraphicalLatticeModelGL::latticeReplaced() { emit latticeRenewed(); }

}  // namespace quorvane
