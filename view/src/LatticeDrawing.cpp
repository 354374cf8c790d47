#include "LatticeDrawing.h"

#include <QOpenGLFunctions_2_1>

#include "model/DrawnSite.h"

namespace quorvane {
namespace {

double normalised(double coordinate, double extent) { return 2.0 * (coordinate / extent) - 1.0; }

bool hasSitesToDraw(const ModelState& model) {
  // With a site spacing of 0 or infinity the bands would never reach the end of the view.
  const bool hasSites = model.varImax > 0 && model.varJmax > 0;
  return model.varMyState > kNotInitialised && hasSites && model.varMyWidth > 0.0 && model.varMyHeight > 0.0;
}

std::vector<TypeInk> inksOf(const ModelState& model) {
  std::vector<TypeInk> inks;
  inks.reserve(kMaxPixelTypes);
  for (int type = 0; type < model.varNumSiteTypes; ++type) inks.push_back(inkOf(model, type));
  return inks;
}

}  // namespace

LatticeDrawing::LatticeDrawing(const ModelState& model, float smallestVisibleAlpha)
    : model_(model), smallestVisibleAlpha_(smallestVisibleAlpha) {
  if (!hasSitesToDraw(model)) return;
  columns_ = bandsAcross(model.varMyWidth, model.varSiteSpacing, model.varImax);
  rows_ = bandsAcross(model.varMyHeight, model.varSiteSpacing, model.varJmax);
}

/// The bands across an extent in drawing order; if the sites do not fill it, they repeat.
std::vector<LatticeDrawing::Band> LatticeDrawing::bandsAcross(double extent, double spacing, int sites) {
  const SiteSquare square = siteSquare(spacing);
  std::vector<Band> bands;
  int site = 0;
  double start = square.inset;
  do {
    const double end = start + spacing + square.reach;
    bands.push_back({site, normalised(start, extent), normalised(end, extent)});
    site = site + 1 > sites - 1 ? 0 : site + 1;
    start = start + spacing;
  } while (start <= extent);
  return bands;
}

void LatticeDrawing::drawColumns(QOpenGLFunctions_2_1& gl, int count) {
  const std::vector<TypeInk> inks = inksOf(model_);
  for (; count > 0 && !whole(); --count) {
    const Band& column = columns_[nextColumn_++];
    for (const Band& row : rows_)
      for (std::size_t type = 0; type < inks.size(); ++type) {
        const TypeInk& ink = inks[type];
        const float alpha = ink.alphaOf(model_.varMobileHistory[type][column.site][row.site]);
        if (alpha < smallestVisibleAlpha_) continue;
        gl.glColor4f(ink.red, ink.green, ink.blue, alpha);
        gl.glRectd(column.from, row.from, column.to, row.to);
      }
  }
}

}  // namespace quorvane
