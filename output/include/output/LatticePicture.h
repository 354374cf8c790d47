#pragma once

#include <cstdint>
#include <vector>

#include "model/LatticeModel.h"

namespace quorvane {

/// Pixels row by row from the top left, each with red, green and blue from 0 to 255.
struct Image {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> rgb;
};

/// The default number of pixels per site, and the largest one.
inline constexpr int kDefaultScale = 4;
inline constexpr int kMaxScale = 32;

/// Renders the display trace of a model as the view shows it, at a whole number of pixels per site.
///
/// The picture has exactly the size of the lattice, with j upwards. Each site is a square for each pixel type
/// in order, in the type's colour, blended with alpha trace / largest trace * opacity; after each square the
/// pixels are rounded to 8 bits, as a frame buffer does. Above 8 pixels per site the squares leave a black
/// line of 2 pixels to the left and below; otherwise they overlap by 1 pixel the sites to the right and
/// above, which are drawn later. scale: 1 or more.
Image drawLattice(const LatticeModel& model, int scale);

/// The same for a single pixel type: the view with every other type at opacity 0.
Image drawTrace(const LatticeModel& model, int type, int scale);

/// The lattice, with the trace of each pixel type to its right, in order.
Image drawLatticeAndTraces(const LatticeModel& model, int scale);

/// The width in pixels and the grey value of the lines between the panels of drawLatticeAndTraces.
inline constexpr int kPanelGap = 4;
inline constexpr std::uint8_t kPanelGapGrey = 128;

}  // namespace quorvane
