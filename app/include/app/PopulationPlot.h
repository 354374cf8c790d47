#pragma once

#include <array>

#include "model/LatticeModel.h"

namespace quorvane {

class GraphicalPlot;

/// Feeds a plot view with the shares of the lattice's sites that two pixel types hold.
///
/// The shares of all types are kept for the last 256 points, so that the types shown can be exchanged at any
/// time.
class PopulationPlot {
 public:
  static constexpr int kMaxPoints = 256;
  /// The share of the sites that each type holds, 0 to 1.
  using Shares = std::array<double, kMaxPixelTypes>;

  /// Both must outlive it.
  PopulationPlot(const LatticeModel& model, GraphicalPlot& plot) : model_(model), plot_(plot) {}

  /// Counts the lattice's sites and appends a point, if the model runs.
  void record();
  /// Shows the shares of one type in red and of another in green; -1 shows none, at 0.
  void showTypes(int red, int green);

  /// Counts the lattice's sites; there must be a model.
  Shares countShares() const;
  int numPoints() const { return numPoints_; }
  /// The share of a type at a point, 0 to 1; point 0 is the oldest.
  double share(int type, int point) const;

 private:
  void refresh();

  const LatticeModel& model_;
  GraphicalPlot& plot_;
  std::array<Shares, kMaxPoints> points_{};
  int first_ = 0;
  int numPoints_ = 0;
  int red_ = 0, green_ = 0;
};

}  // namespace quorvane
