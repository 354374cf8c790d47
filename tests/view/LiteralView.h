#pragma once

#include "view/GraphicalLatticeModelGL.h"

class QOpenGLFunctions_2_1;

namespace quorvane {

/// Draws its lattice literally: one rectangle for every pixel type of every site, including transparent ones.
/// The view's own frames are compared with it.
class LiteralView : public GraphicalLatticeModelGL {
 public:
  /// The number of rectangles of the last frame.
  long rectangles() const { return rectangles_; }

 protected:
  void paintGL() override;

 private:
  void drawSite(QOpenGLFunctions_2_1& gl, int i, int j, double x, double y);

  long rectangles_ = 0;
};

}  // namespace quorvane
