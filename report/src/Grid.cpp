#include "Grid.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>

#include "Table.h"

namespace quorvane {
namespace {

void findNumbers(GridAxis& axis) {
  for (const std::string& value : axis.values) axis.xs.push_back(numberIn(value));
  axis.isNumber = std::all_of(axis.xs.begin(), axis.xs.end(), [](double x) { return std::isfinite(x); });
  if (axis.isNumber) return;
  for (std::size_t k = 0; k < axis.xs.size(); ++k) axis.xs[k] = static_cast<double>(k);
}

GridAxis axisOf(const std::vector<LatticeSides>& sides) {
  const bool squares = std::all_of(sides.begin(), sides.end(),
                                   [](const LatticeSides& pair) { return pair.imax == pair.jmax; });
  GridAxis axis{.label = squares ? "Side of the lattice" : "Sides of the lattice",
                .values = {},
                .xs = {},
                .isNumber = false};
  for (const LatticeSides& pair : sides)
    axis.values.push_back(squares ? std::to_string(pair.imax)
                                  : std::to_string(pair.imax) + " × " + std::to_string(pair.jmax));
  findNumbers(axis);
  return axis;
}

GridAxis axisOf(const Axis& varied) {
  GridAxis axis{
      .label = varied.name + ": " + varied.field, .values = varied.values, .xs = {}, .isNumber = false};
  findNumbers(axis);
  return axis;
}

/// count of n places, evenly, with the first and the last one.
std::vector<std::size_t> placesEvenly(std::size_t n, std::size_t count) {
  std::vector<std::size_t> places;
  for (std::size_t k = 0; k < count; ++k) places.push_back(count == 1 ? 0 : k * (n - 1) / (count - 1));
  return places;
}

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) {
    if (!text.empty()) text += ", ";
    text += word;
  }
  return text;
}

}  // namespace

Grid::Grid(const Study& study) : study_(study) {
  if (!study.sides.empty()) axes_.push_back(axisOf(study.sides));
  for (const Axis& axis : study.axes) axes_.push_back(axisOf(axis));
  for (std::size_t k = 0; k < axes_.size(); ++k)
    if (axes_[k].values.size() > 1) varied_.push_back(k);
}

std::size_t Grid::place(std::int64_t point, std::size_t axis) const { return placesOf(study_, point)[axis]; }

bool Grid::isShown(std::int64_t point, const std::vector<std::size_t>& axes, std::size_t most) const {
  std::vector<std::size_t> counts;
  counts.reserve(axes.size());
  for (const std::size_t axis : axes) counts.push_back(axes_[axis].values.size());
  const auto product = [&] {
    return std::accumulate(counts.begin(), counts.end(), 1.0, std::multiplies<>());
  };
  while (product() > static_cast<double>(most)) --*std::max_element(counts.begin(), counts.end());
  for (std::size_t k = 0; k < axes.size(); ++k) {
    const auto places = placesEvenly(axes_[axes[k]].values.size(), counts[k]);
    if (std::find(places.begin(), places.end(), place(point, axes[k])) == places.end()) return false;
  }
  return true;
}

std::string Grid::valuesOf(std::int64_t point, const std::vector<std::size_t>& axes) const {
  std::vector<std::string> words;
  words.reserve(axes.size());
  for (const std::size_t axis : axes) words.push_back(axes_[axis].values[place(point, axis)]);
  return joined(words);
}

std::string Grid::labelsOf(const std::vector<std::size_t>& axes) const {
  std::vector<std::string> words;
  words.reserve(axes.size());
  for (const std::size_t axis : axes) words.push_back(axes_[axis].label);
  return joined(words);
}

}  // namespace quorvane
