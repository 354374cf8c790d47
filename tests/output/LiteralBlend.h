#pragma once

#include "output/LatticePicture.h"

namespace quorvane {

/// The image that the view blends, computed pixel by pixel in double precision: over black, each rectangle
/// that covers the pixel's centre, site by site with i outer and j inner, and type by type from `from` to
/// before `to`. Components are clamped to 0 to 1 and rounded to 8 bits after each.
Image literalBlend(const LatticeModel& model, int from, int end, int scale);

/// The largest difference of a component, or 256 if the sizes differ.
int largestDifference(const Image& a, const Image& b);

}  // namespace quorvane
