#include "FrameInSlices.h"

#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions_2_1>

namespace quorvane {

FrameInSlices::FrameInSlices() = default;
FrameInSlices::~FrameInSlices() = default;

bool FrameInSlices::isPossible() {
  return QOpenGLFramebufferObject::hasOpenGLFramebufferObjects() &&
         QOpenGLFramebufferObject::hasOpenGLFramebufferBlit();
}

void FrameInSlices::freeFramebuffer() {
  drop();
  framebuffer_.reset();
}

bool FrameInSlices::bind(QSize pixels, const QOpenGLFramebufferObjectFormat& format) {
  if (!framebuffer_ || framebuffer_->size() != pixels) {
    drop();
    framebuffer_ = std::make_unique<QOpenGLFramebufferObject>(pixels, format);
  }
  return framebuffer_->bind();
}

void FrameInSlices::release() { framebuffer_->release(); }

void FrameInSlices::drawSlice(QOpenGLFunctions_2_1& gl) {
  using std::chrono::steady_clock;
  const auto begin = steady_clock::now();
  drawing_->drawColumns(gl, length_.columns());
  // Without it a software renderer would put off most of the work until the frame is shown.
  gl.glFinish();
  length_.sliceTook(steady_clock::now() - begin);
}

bool FrameInSlices::show(QSize pixels) const {
  if (!whole() || framebuffer_->size() != pixels) return false;
  const QRect all(QPoint(0, 0), pixels);
  QOpenGLFramebufferObject::blitFramebuffer(nullptr, all, framebuffer_.get(), all);
  return true;
}

}  // namespace quorvane
