#include "app/PopulationPlot.h"

#include "view/GraphicalPlot.h"

namespace quorvane {

void PopulationPlot::record() {
  if (model_.varMyState != kRunning) return;
  points_[static_cast<std::size_t>((first_ + numPoints_) % kMaxPoints)] = countShares();
  if (numPoints_ < kMaxPoints)
    ++numPoints_;
  else
    first_ = (first_ + 1) % kMaxPoints;
  refresh();
}

void PopulationPlot::showTypes(int red, int green) {
  red_ = red;
  green_ = green;
  refresh();
}

double PopulationPlot::share(int type, int point) const {
  if (type < 0 || type >= kMaxPixelTypes) return 0.0;
  return points_[static_cast<std::size_t>((first_ + point) % kMaxPoints)][static_cast<std::size_t>(type)];
}

PopulationPlot::Shares PopulationPlot::countShares() const {
  const int imax = model_.getIMax(), jmax = model_.getJMax();
  std::array<int, kMaxPixelTypes> sites{};
  for (int i = 0; i < imax; ++i)
    for (int j = 0; j < jmax; ++j) ++sites[static_cast<std::size_t>(model_.getSiteValue(i, j))];
  Shares shares{};
  for (std::size_t type = 0; type < shares.size(); ++type)
    shares[type] = static_cast<double>(sites[type]) / (imax * jmax);
  return shares;
}

void PopulationPlot::refresh() {
  plot_.setState(1);
  plot_.setXMax(numPoints_);
  for (int point = 0; point < numPoints_; ++point) {
    plot_.setXYValue(0, point, share(red_, point));
    plot_.setXYValue(1, point, share(green_, point));
  }
  plot_.refreshPlot();
}

}  // namespace quorvane
