#pragma once

namespace quorvane {

/// Sites across and upwards.
struct LatticeSize {
  int imax, jmax;
  bool operator==(const LatticeSize&) const = default;
};

/// The lattice that fills a view of a width and height in points at a density in sites for each 502 points of
/// width: at most 254 sites along either side, where the other side follows the view's shape, at least 1.
LatticeSize latticeSize(double width, double height, int density);

}  // namespace quorvane
