#pragma once

#include <vector>

#include "model/ModelState.h"

class QOpenGLFunctions_2_1;

namespace quorvane {

/// The rectangles of a lattice, drawn from the left, a few columns at a time.
///
/// Takes the geometry from the model's view size and site spacing when it is made, and the traces and colours
/// when a column is drawn.
class LatticeDrawing {
 public:
  /// Rectangles below the smallest visible alpha are left out. The model must outlive the drawing.
  LatticeDrawing(const ModelState& model, float smallestVisibleAlpha);

  /// True when every column is drawn; at once before the model is initialised, and without sites or a view.
  bool whole() const { return nextColumn_ == columns_.size(); }
  /// Draws the next columns into the current framebuffer, as far as there are any.
  void drawColumns(QOpenGLFunctions_2_1& gl, int count);

 private:
  /// A column or row of sites and its extent in normalised device coordinates.
  struct Band {
    int site;
    double from, to;
  };
  static std::vector<Band> bandsAcross(double extent, double spacing, int sites);

  const ModelState& model_;
  float smallestVisibleAlpha_;
  std::vector<Band> columns_, rows_;
  std::size_t nextColumn_ = 0;
};

}  // namespace quorvane
