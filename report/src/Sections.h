#pragma once

#include <string>
#include <vector>

#include "Figure.h"
#include "Grid.h"
#include "Table.h"

namespace quorvane {

/// The sections of points.csv, a quantity each: a figure over each axis with more than one value, with a
/// curve for each value of the other axes. Columns that are values of a function, as correlations are, have
/// one figure over its argument, with a curve for each point. Series and functions also have one on
/// logarithmic axes if all values are positive and span a factor of two. types: the names of the pixel types.
std::vector<Section> pointSections(const Grid& grid, const Table& points,
                                   const std::vector<std::string>& types);

/// The sections of series.csv, likewise: over sweeps, functions at the last sweep.
std::vector<Section> seriesSections(const Grid& grid, const Table& series,
                                    const std::vector<std::string>& types);

}  // namespace quorvane
