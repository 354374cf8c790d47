#pragma once

#include "output/LatticePicture.h"

namespace quorvane {

/// What the view blends at every pixel, worked out pixel by pixel in double precision: over black, each
/// rectangle that lies over the pixel's middle, site by site with i outer and j inner and type by type, of
/// the types from one to before another. Components are held to 0 to 1 and rounded to 8 bits after each.
Image literalBlend(const LatticeModel& model, int from, int end, int scale);

/// The largest difference of a component, or 256 where the sizes differ.
int largestDifference(const Image& a, const Image& b);

}  // namespace quorvane
