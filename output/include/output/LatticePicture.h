#pragma once

#include <cstdint>
#include <vector>

#include "model/LatticeModel.h"

namespace quorvane {

/// Pixels from the top left, row by row, each red, green, blue from 0 to 255.
struct Image {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> rgb;
};

/// Pixels a site where nobody chose, and the most that a user may choose.
inline constexpr int kDefaultScale = 4;
inline constexpr int kMaxScale = 32;

/// The display trace of a model as the view shows it at a whole number of pixels a site.
///
/// The picture is exactly as large as the lattice, with j upwards. Each site is a square for each pixel type
/// in order, in the type's colour, blended over what is there with the alpha trace / largest trace *
/// transparency; after each square the pixels are rounded to 8 bits, as a frame buffer does. Above 8 pixels a
/// site the squares leave a black line of 2 pixels to the left and below; else they reach 1 pixel over the
/// sites to the right and above, which are drawn later. scale: 1 or more.
Image drawLattice(const LatticeModel& model, int scale);

/// The same of one pixel type: what the view shows where every other type has the transparency 0.
Image drawTrace(const LatticeModel& model, int type, int scale);

/// The lattice and to its right the trace of each pixel type, in order.
Image drawLatticeAndTraces(const LatticeModel& model, int scale);

/// Columns between the panels of drawLatticeAndTraces, and the value of all their components.
inline constexpr int kPanelGap = 4;
inline constexpr std::uint8_t kPanelGapGrey = 128;

}  // namespace quorvane
