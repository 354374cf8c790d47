#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "model/SiteCounts.h"
#include "view/GraphicalPlot.h"

namespace quorvane {

/// Feeds a plot view with the shares of sites that two pixel types hold.
///
/// Records the sites of all types for the last kMaxPoints points, so that other types can be shown later.
class PopulationPlot {
 public:
  static constexpr int kMaxPoints = GraphicalPlot::kMaxPoints;

  /// Both must outlive it.
  PopulationPlot(const LatticeModel& model, GraphicalPlot& plot) : model_(model), plot_(plot) {}

  /// Counts the lattice's sites and appends a point.
  void addPoint();
  /// As addPoint, but only while the model runs: frames are also drawn of a stopped model.
  void record();
  /// Removes all points.
  void startAnew();
  /// Shows the share of one type in red and of another in green; -1 shows 0.
  void showTypes(int red, int green);

  int numPoints() const { return numPoints_; }
  /// The share of a type at a point, 0 to 1; point 0 is the oldest.
  double share(int type, int point) const;
  /// The points as a table of sweeps and sites, oldest first, with a column for each present type; points
  /// from before a type was added have 0 for it.
  std::string csv() const;

 private:
  struct Point {
    std::int64_t sweep = 0;
    SiteCounts sites{};
  };

  const Point& at(int point) const;
  void refresh();

  const LatticeModel& model_;
  GraphicalPlot& plot_;
  std::array<Point, kMaxPoints> points_{};
  int first_ = 0;
  int numPoints_ = 0;
  int red_ = 0, green_ = 0;
};

}  // namespace quorvane
