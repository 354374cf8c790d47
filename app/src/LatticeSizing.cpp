#include "app/LatticeSizing.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr double kPointsOfDensity = 502.0;
constexpr int kMostSites = 254;

}  // namespace

LatticeSize latticeSize(double width, double height, int density) {
  const double spacing = kPointsOfDensity / density;
  int imax = static_cast<int>(width / spacing);
  int jmax = static_cast<int>(height / spacing);
  // In this order: the second limit uses the height that the first one gives.
  if (imax >= kMostSites) {
    imax = kMostSites;
    jmax = static_cast<int>(kMostSites * (height / width));
  }
  if (jmax >= kMostSites) {
    jmax = kMostSites;
    imax = static_cast<int>(kMostSites * (width / height));
  }
  return {std::max(imax, 1), std::max(jmax, 1)};
}

}  // namespace quorvane
