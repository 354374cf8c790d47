#pragma once

namespace quorvane {

/// Sites across and upwards.
struct LatticeSize {
  int imax, jmax;
  bool operator==(const LatticeSize&) const = default;
};

/// The lattice that fills a view of a size in points at a density in sites per 502 points of width: 1 to 254
/// sites along each side; if one side is limited, the other follows the view's shape.
LatticeSize latticeSize(double width, double height, int density);

}  // namespace quorvane
