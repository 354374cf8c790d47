#include "app/PopulationPlot.h"

#include "output/PopulationTable.h"

namespace quorvane {

void PopulationPlot::addPoint() {
  points_[static_cast<std::size_t>((first_ + numPoints_) % kMaxPoints)] = {model_.sweepsDone(),
                                                                           countSites(model_)};
  if (numPoints_ < kMaxPoints)
    ++numPoints_;
  else
    first_ = (first_ + 1) % kMaxPoints;
  refresh();
}

void PopulationPlot::record() {
  if (model_.varMyState == kRunning) addPoint();
}

void PopulationPlot::startAnew() {
  first_ = 0;
  numPoints_ = 0;
  refresh();
}

void PopulationPlot::showTypes(int red, int green) {
  red_ = red;
  green_ = green;
  refresh();
}

const PopulationPlot::Point& PopulationPlot::at(int point) const {
  return points_[static_cast<std::size_t>((first_ + point) % kMaxPoints)];
}

double PopulationPlot::share(int type, int point) const { return shareOfSites(at(point).sites, type); }

std::string PopulationPlot::csv() const {
  PopulationTable table(model_);
  for (int point = 0; point < numPoints_; ++point) table.addRow(at(point).sites, at(point).sweep);
  return table.csv();
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
