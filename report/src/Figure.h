#pragma once

#include <string>
#include <vector>

#include "Table.h"

namespace quorvane {

struct PlotPoint {
  double x, y;
  double error;  ///< a standard error; nan if it is not known
};

struct Curve {
  std::string name;
  std::vector<PlotPoint> points;  ///< finite x and y, by x
};

/// What a plot shows.
struct Figure {
  std::string caption, xLabel, yLabel;
  std::string keyTitle;            ///< what the names of the curves are; may be empty
  std::vector<std::string> ticks;  ///< what x = 0, 1, 2, ... stand for; empty if x is a number
  bool logarithmic = false;        ///< both axes; x and y are positive then
  bool bands = false;              ///< errors as bands, not as bars
  std::vector<Curve> curves;       ///< at most kMostCurves
};

/// As many curves as a plot can have that are told apart.
inline constexpr std::size_t kMostCurves = 8;

/// The figures of one quantity, with the table behind them.
struct Section {
  std::string title;
  std::string text;      ///< a sentence; may be empty
  std::string fileName;  ///< of the table
  Table table;
  std::vector<Figure> figures;
};

}  // namespace quorvane
