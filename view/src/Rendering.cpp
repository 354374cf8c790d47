#include <QOpenGLContext>
#include <QOpenGLFramebufferObjectFormat>
#include <QOpenGLFunctions_2_1>
#include <QOpenGLVersionFunctionsFactory>

#include "FaintInk.h"
#include "FrameInSlices.h"
#include "LatticeDrawing.h"
#include "view/GraphicalLatticeModelGL.h"

namespace quorvane {
namespace {

constexpr int kColumnsAtATime = 16;

}  // namespace

QOpenGLFunctions_2_1* GraphicalLatticeModelGL::currentFunctions() {
  QOpenGLContext* context = QOpenGLContext::currentContext();
  if (context == nullptr || context->isOpenGLES()) return nullptr;
  auto* gl = QOpenGLVersionFunctionsFactory::get<QOpenGLFunctions_2_1>(context);
  return gl != nullptr && gl->initializeOpenGLFunctions() ? gl : nullptr;
}

void GraphicalLatticeModelGL::initializeGL() {
  QOpenGLFunctions_2_1* gl = currentFunctions();
  if (gl == nullptr) return;
  smallestVisibleAlpha_ = smallestVisibleAlpha(*gl, framebufferFormat());
  if (!FrameInSlices::isPossible()) return;
  runFrame_ = std::make_unique<FrameInSlices>();
  connect(context(), &QOpenGLContext::aboutToBeDestroyed, runFrame_.get(), [this] {
    makeCurrent();
    runFrame_->freeFramebuffer();
  });
}

QOpenGLFramebufferObjectFormat GraphicalLatticeModelGL::framebufferFormat() const {
  QOpenGLFramebufferObjectFormat framebuffer;
  framebuffer.setSamples(format().samples());
  // 0 stands for the default, which is the same for both.
  if (textureFormat() != 0) framebuffer.setInternalTextureFormat(textureFormat());
  return framebuffer;
}

void GraphicalLatticeModelGL::paintGL() {
  QOpenGLFunctions_2_1* gl = currentFunctions();
  if (gl != nullptr && showsRunFrame_ && runFrame_->show(pixels())) return endFrame(*gl);
  pacer_.frameBegins();
  drawRect();
}

void GraphicalLatticeModelGL::resizeGL(int /*width*/, int /*height*/) { reshape(); }

void GraphicalLatticeModelGL::reshape() {
  if (context() == nullptr) return;
  makeCurrent();
  if (QOpenGLFunctions_2_1* gl = currentFunctions()) setViewport(*gl);
}

QSize GraphicalLatticeModelGL::pixels() const {
  // Rounded like the size of the widget's framebuffer, so that the viewport matches it exactly.
  return size() * devicePixelRatioF();
}

void GraphicalLatticeModelGL::setViewport(QOpenGLFunctions_2_1& gl) const {
  gl.glViewport(0, 0, pixels().width(), pixels().height());
}

void GraphicalLatticeModelGL::drawRect() {
  QOpenGLWidget::paintGL();
  QOpenGLFunctions_2_1* gl = currentFunctions();
  if (gl == nullptr) return;
  LatticeDrawing drawing = beginFrame(*gl);
  while (!drawing.whole()) {
    drawing.drawColumns(*gl, kColumnsAtATime);
    // A software renderer buffers rectangles until it is flushed, several megabytes for a whole frame.
    gl->glFlush();
  }
  endFrame(*gl);
}

LatticeDrawing GraphicalLatticeModelGL::beginFrame(QOpenGLFunctions_2_1& gl) {
  // Qt sets its own viewport after a resize, which replaces the one from reshape.
  setViewport(gl);
  gl.glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
  gl.glClear(GL_COLOR_BUFFER_BIT);
  gl.glEnable(GL_BLEND);
  gl.glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);

  varMyWidth = width();
  varMyHeight = height();
  varSiteSpacing = varMyWidth / varImax;
  return {*this, smallestVisibleAlpha_};
}

void GraphicalLatticeModelGL::endFrame(QOpenGLFunctions_2_1& gl) {
  // A frame ends with these calls, drawn sites or not. Without an open primitive the first only sets an error
  // flag, which nothing reads.
  gl.glEnd();
  gl.glFlush();
  emit frameDrawn();
}

}  // namespace quorvane
