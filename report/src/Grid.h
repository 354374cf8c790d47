#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "study/Study.h"

namespace quorvane {

/// An axis of a study as plots show it.
struct GridAxis {
  std::string label;
  std::vector<std::string> values;
  std::vector<double> xs;  ///< of the values on the axis of a plot: the values, or their places if they are
                           ///< no numbers
  bool isNumber;
};

/// The points of a study by their places on its axes.
class Grid {
 public:
  explicit Grid(const Study& study);

  const std::vector<GridAxis>& axes() const { return axes_; }
  std::size_t place(std::int64_t point, std::size_t axis) const;
  /// Axes with more than one value.
  const std::vector<std::size_t>& varied() const { return varied_; }

  /// Of the points with all values of some axes, those that a plot shows, at most most of them: whole
  /// combinations of values, with the ends of each axis where possible.
  bool isShown(std::int64_t point, const std::vector<std::size_t>& axes, std::size_t most) const;

  /// The values of a point on some axes, and the labels of these axes, with commas.
  std::string valuesOf(std::int64_t point, const std::vector<std::size_t>& axes) const;
  std::string labelsOf(const std::vector<std::size_t>& axes) const;

 private:
  Study study_;
  std::vector<GridAxis> axes_;
  std::vector<std::size_t> varied_;
};

}  // namespace quorvane
