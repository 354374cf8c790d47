#pragma once

#include "view/GraphicalLatticeModelGL.h"

class QOpenGLFunctions_2_1;

namespace quorvane {

/// Draws its lattice in the plainest way: one rectangle for every pixel type of every site, one after the
/// other, the transparent ones too. What the view's own frames are compared with.
class LiteralView : public GraphicalLatticeModelGL {
 public:
  /// Rectangles of the last frame.
  long rectangles() const { return rectangles_; }

 protected:
  void paintGL() override;

 private:
  void drawSite(QOpenGLFunctions_2_1& gl, int i, int j, double x, double y);

  long rectangles_ = 0;
};

}  // namespace quorvane
