#pragma once

#include <QObject>
#include <QSize>
#include <memory>
#include <optional>

#include "LatticeDrawing.h"
#include "SliceLength.h"

class QOpenGLFramebufferObject;
class QOpenGLFramebufferObjectFormat;

namespace quorvane {

/// A frame that is drawn in slices between events, into a framebuffer of its own, and shown when it is whole.
///
/// Belongs to one context, which must be current in every operation that draws, and in freeFramebuffer, which
/// must be called before the context ends. A QObject only to receive the signal of that end.
class FrameInSlices : public QObject {
 public:
  FrameInSlices();
  ~FrameInSlices() override;

  /// Whether the current context can copy one framebuffer to another.
  static bool isPossible();

  bool underWay() const { return drawing_.has_value(); }
  bool whole() const { return drawing_ && drawing_->whole(); }
  /// Forgets a frame that is under way or whole.
  void drop() { drawing_.reset(); }
  void freeFramebuffer();

  /// Makes the frame's framebuffer the one to draw into, until release. False if there can be none.
  bool bind(QSize pixels, const QOpenGLFramebufferObjectFormat& format);
  void release();
  /// A new frame, of which the framebuffer has the background already.
  void begin(const LatticeDrawing& drawing) { drawing_.emplace(drawing); }
  /// Draws the next slice, and waits until the driver has drawn it too.
  void drawSlice(QOpenGLFunctions_2_1& gl);
  /// Copies the frame to the framebuffer of the context. False unless it is whole and has this size.
  bool show(QSize pixels) const;

 private:
  std::unique_ptr<QOpenGLFramebufferObject> framebuffer_;
  std::optional<LatticeDrawing> drawing_;
  SliceLength length_;
};

}  // namespace quorvane
