#include "Sections.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

#include "Quantity.h"
#include "ValueText.h"

namespace quorvane {
namespace {

using Rows = std::vector<const std::vector<std::string>*>;

/// A column of values with the one of errors behind it.
struct Pair {
  std::size_t value;
  std::size_t error() const { return value + 1; }
};

/// The columns of one section: a single pair, or the values of a function by its argument.
struct Columns {
  std::string function;  ///< empty for a single pair
  std::vector<std::pair<int, Pair>> pairs;
};

/// The pairs of a table from a column on, in their order, those of a function as one.
std::vector<Columns> sectionsFrom(const Table& table, std::size_t first) {
  std::vector<Columns> all;
  for (std::size_t k = first; k + 1 < table.names.size(); k += 2) {
    const auto profile = profileColumn(table.names[k]);
    if (!profile) {
      all.push_back({.function = {}, .pairs = {{0, Pair{k}}}});
      continue;
    }
    const auto same = std::find_if(all.begin(), all.end(), [&](const Columns& columns) {
      return columns.function == profile->function;
    });
    if (same == all.end())
      all.push_back({.function = profile->function, .pairs = {{profile->argument, Pair{k}}}});
    else
      same->pairs.emplace_back(profile->argument, Pair{k});
  }
  return all;
}

std::int64_t pointOf(const std::vector<std::string>& row) {
  return static_cast<std::int64_t>(numberIn(row[0]));
}

/// Says what the names of the curves are, in the key if there is room, and whether some are left out.
void explainCurves(Figure& figure, const Grid& grid, const std::vector<std::size_t>& axes) {
  constexpr std::size_t room = 80;
  const std::string labels = grid.labelsOf(axes);
  if (labels.size() <= room)
    figure.keyTitle = labels;
  else
    figure.caption.append(" The curves are for values of: ").append(labels).append(".");
  double all = 1.0;
  for (const std::size_t axis : axes) all *= static_cast<double>(grid.axes()[axis].values.size());
  if (all > static_cast<double>(kMostCurves))
    figure.caption.append(" Not all values of ").append(labels).append(" are shown; the table has all.");
}

void addPoint(Curve& curve, double x, const std::vector<std::string>& row, Pair pair) {
  const double y = numberIn(row[pair.value]);
  if (std::isfinite(y)) curve.points.push_back({.x = x, .y = y, .error = numberIn(row[pair.error()])});
}

Curve& curveNamed(std::vector<Curve>& curves, const std::string& name) {
  const auto found =
      std::find_if(curves.begin(), curves.end(), [&](const Curve& curve) { return curve.name == name; });
  return found == curves.end() ? curves.emplace_back(Curve{.name = name, .points = {}}) : *found;
}

void addFigure(Section& section, Figure figure) {
  std::erase_if(figure.curves, [](const Curve& curve) { return curve.points.empty(); });
  if (!figure.curves.empty()) section.figures.push_back(std::move(figure));
}

std::string fileNameOf(const char* prefix, std::string name) {
  constexpr std::string_view mean = "_mean";
  if (name.ends_with(mean)) name.resize(name.size() - mean.size());
  return prefix + name + ".csv";
}

/// The settings of a table, and some pairs.
Table tableOf(const Table& table, std::size_t numSettings, const Columns& columns) {
  std::vector<std::size_t> kept;
  for (std::size_t k = 0; k < numSettings; ++k) kept.push_back(k);
  for (const auto& [argument, pair] : columns.pairs) {
    kept.push_back(pair.value);
    kept.push_back(pair.error());
  }
  return columnsOf(table, kept);
}

/// A function over its argument, a curve for each row.
Figure profileFigure(const Grid& grid, const Columns& columns, const Quantity& quantity, const Rows& rows,
                     const std::string& caption) {
  const Quantity argument = profileArgument(columns.function);
  Figure figure{.caption = caption,
                .xLabel = argument.label(),
                .yLabel = quantity.label(),
                .keyTitle = {},
                .ticks = {},
                .curves = {}};
  for (const auto* row : rows) {
    if (!grid.isShown(pointOf(*row), grid.varied(), kMostCurves)) continue;
    Curve curve{.name = grid.valuesOf(pointOf(*row), grid.varied()), .points = {}};
    for (const auto& [x, pair] : columns.pairs) addPoint(curve, x, *row, pair);
    figure.curves.push_back(std::move(curve));
  }
  explainCurves(figure, grid, grid.varied());
  return figure;
}

/// A quantity over one axis, a curve for each value of the others.
Figure axisFigure(const Grid& grid, std::size_t over, const Table& points, Pair pair,
                  const Quantity& quantity) {
  std::vector<std::size_t> others = grid.varied();
  std::erase(others, over);
  const GridAxis& axis = grid.axes()[over];
  Figure figure{.caption = quantity.title + " over “" + axis.label + "”.",
                .xLabel = axis.label,
                .yLabel = quantity.label(),
                .keyTitle = {},
                .ticks = axis.isNumber ? std::vector<std::string>() : axis.values,
                .curves = {}};
  for (const auto& row : points.rows) {
    const std::int64_t point = pointOf(row);
    if (!grid.isShown(point, others, kMostCurves)) continue;
    addPoint(curveNamed(figure.curves, grid.valuesOf(point, others)), axis.xs[grid.place(point, over)], row,
             pair);
  }
  for (Curve& curve : figure.curves)
    std::stable_sort(curve.points.begin(), curve.points.end(),
                     [](const PlotPoint& a, const PlotPoint& b) { return a.x < b.x; });
  explainCurves(figure, grid, others);
  return figure;
}

Section sectionOf(const Table& table, const Columns& columns, std::size_t numSettings, const char* prefix,
                  const Quantity& quantity) {
  const std::string name =
      columns.function.empty() ? table.names[columns.pairs.front().second.value] : columns.function;
  return {.title = quantity.title,
          .text = {},
          .fileName = fileNameOf(prefix, name),
          .table = tableOf(table, numSettings, columns),
          .figures = {}};
}

Quantity quantityIn(const Table& table, const Columns& columns, const std::vector<std::string>& types) {
  return columns.function.empty() ? quantityOf(table.names[columns.pairs.front().second.value], types)
                                  : profileQuantity(columns.function, types);
}

/// The rows of a table by their points.
std::map<std::int64_t, Rows> rowsByPoint(const Table& table) {
  std::map<std::int64_t, Rows> lists;
  for (const auto& row : table.rows) lists[pointOf(row)].push_back(&row);
  return lists;
}

Figure timeFigure(const Grid& grid, const Table& series, std::size_t sweep, Pair pair,
                  const Quantity& quantity) {
  Figure figure{.caption = quantity.title + " over time.",
                .xLabel = "Time (sweeps)",
                .yLabel = quantity.label(),
                .keyTitle = {},
                .ticks = {},
                .bands = true,
                .curves = {}};
  for (const auto& [point, rows] : rowsByPoint(series)) {
    if (!grid.isShown(point, grid.varied(), kMostCurves)) continue;
    Curve curve{.name = grid.valuesOf(point, grid.varied()), .points = {}};
    for (const auto* row : rows) addPoint(curve, numberIn((*row)[sweep]), *row, pair);
    figure.curves.push_back(std::move(curve));
  }
  explainCurves(figure, grid, grid.varied());
  return figure;
}

/// The figure on logarithmic axes, without the start at time 0; without curves if a value is not positive, or
/// if the values span less than a factor of two, which shows no power.
Figure logarithmic(Figure figure) {
  figure.caption += " Both axes are logarithmic.";
  figure.logarithmic = true;
  constexpr double leastSpan = 2.0;
  double lowest = std::numeric_limits<double>::infinity(), highest = 0.0;
  for (Curve& curve : figure.curves) {
    std::erase_if(curve.points, [](const PlotPoint& point) { return point.x <= 0.0; });
    for (const PlotPoint& point : curve.points) {
      lowest = std::min(lowest, point.y);
      highest = std::max(highest, point.y);
    }
  }
  if (!(lowest > 0.0 && highest >= leastSpan * lowest)) figure.curves.clear();
  return figure;
}

/// A figure, and the same on logarithmic axes.
void addBoth(Section& section, const Figure& figure) {
  addFigure(section, figure);
  addFigure(section, logarithmic(figure));
}

}  // namespace

std::vector<Section> pointSections(const Grid& grid, const Table& points,
                                   const std::vector<std::string>& types) {
  const std::size_t first = points.column("replicas") + 1;
  Rows rows;
  for (const auto& row : points.rows) rows.push_back(&row);
  std::vector<Section> sections;
  for (const Columns& columns : sectionsFrom(points, first)) {
    const Quantity quantity = quantityIn(points, columns, types);
    Section section = sectionOf(points, columns, first, "", quantity);
    if (!columns.function.empty()) {
      addBoth(section, profileFigure(grid, columns, quantity, rows, quantity.title + "."));
    } else if (grid.varied().empty() && points.rows.size() == 1) {
      const Pair pair = columns.pairs.front().second;
      section.text =
          withError(numberIn(points.rows.front()[pair.value]), numberIn(points.rows.front()[pair.error()]));
      if (!quantity.unit.empty()) section.text.append(" (").append(quantity.unit).append(")");
    } else {
      for (const std::size_t axis : grid.varied())
        addFigure(section, axisFigure(grid, axis, points, columns.pairs.front().second, quantity));
    }
    sections.push_back(std::move(section));
  }
  return sections;
}

std::vector<Section> seriesSections(const Grid& grid, const Table& series,
                                    const std::vector<std::string>& types) {
  const std::size_t sweep = series.column("sweep");
  Rows last;
  for (const auto& [point, rows] : rowsByPoint(series)) last.push_back(rows.back());
  std::vector<Section> sections;
  for (const Columns& columns : sectionsFrom(series, sweep + 1)) {
    const Quantity quantity = quantityIn(series, columns, types);
    Section section = sectionOf(series, columns, sweep + 1, "series-", quantity);
    if (columns.function.empty()) {
      addBoth(section, timeFigure(grid, series, sweep, columns.pairs.front().second, quantity));
    } else {
      addBoth(section,
              profileFigure(grid, columns, quantity, last, quantity.title + " after the last sweep."));
    }
    sections.push_back(std::move(section));
  }
  return sections;
}

}  // namespace quorvane
