#pragma once

#include "model/ModelState.h"

/// How a site is drawn, the same in the view and in pictures.
namespace quorvane {

/// The extent of a site's square along an axis. The first square of a row or column starts at the inset, each
/// further one a spacing later; a square ends at start + spacing + reach.
struct SiteSquare {
  int inset;
  int reach;
};

/// spacing: of neighbouring sites, in points or pixels. Above 8 there is a gap of 2 between squares; up to 8
/// a square overlaps the next by 1, to avoid seams.
constexpr SiteSquare siteSquare(double spacing) {
  constexpr double largestWithoutLines = 8.0;
  constexpr int line = 2, overlap = 1;
  if (spacing > largestWithoutLines) return {.inset = line, .reach = -line};
  return {.inset = 0, .reach = overlap};
}

/// The colour of a pixel type in single precision, for OpenGL, with its opacity and largest trace.
struct TypeInk {
  float red, green, blue;
  double largestTrace, opacity;

  float alphaOf(double trace) const { return static_cast<float>(trace / largestTrace * opacity); }
};

inline TypeInk inkOf(const ModelState& model, int type) {
  const auto& color = model.varSiteColor[type];
  return {.red = static_cast<float>(color[0]),
          .green = static_cast<float>(color[1]),
          .blue = static_cast<float>(color[2]),
          .largestTrace = model.varMobileHistoryMax[type],
          .opacity = model.varSiteAlpha[type]};
}

}  // namespace quorvane
