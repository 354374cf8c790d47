#include "Gnuplot.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "RunProgram.h"
#include "Ticks.h"
#include "batch/Messages.h"
#include "study/Study.h"
#include "study/StudyError.h"

namespace quorvane {
namespace {

/// Shapes that are told apart without colour, filled ones first.
constexpr std::array<int, kMostCurves> kShapes = {7, 5, 9, 13, 11, 6, 4, 8};

void addLine(std::string& script, const std::string& line) { script.append(line).append("\n"); }

bool errorsAreKnown(const Figure& figure) {
  return std::all_of(figure.curves.begin(), figure.curves.end(), [](const Curve& curve) {
    return std::all_of(curve.points.begin(), curve.points.end(),
                       [](const PlotPoint& point) { return std::isfinite(point.error); });
  });
}

/// x, y, and the ends of the error bar. On a logarithmic axis one that reaches 0 ends at a small value.
void addData(std::string& script, const Figure& figure) {
  constexpr double small = 1e-3;
  for (std::size_t k = 0; k < figure.curves.size(); ++k) {
    addLine(script, "$curve" + std::to_string(k) + " << END");
    for (const PlotPoint& point : figure.curves[k].points) {
      const double error = std::isfinite(point.error) ? point.error : 0.0;
      double lower = point.y - error;
      if (figure.logarithmic) lower = std::max(lower, point.y * small);
      addLine(script, shortest(point.x) + ' ' + shortest(point.y) + ' ' + shortest(lower) + ' ' +
                          shortest(point.y + error));
    }
    addLine(script, "END");
  }
}

struct Range {
  double first, last;
};

Range rangeOf(const Figure& figure, double PlotPoint::*coordinate) {
  Range range{.first = figure.curves.front().points.front().*coordinate, .last = range.first};
  for (const Curve& curve : figure.curves)
    for (const PlotPoint& point : curve.points) {
      range.first = std::min(range.first, point.*coordinate);
      range.last = std::max(range.last, point.*coordinate);
    }
  return range;
}

/// ("8 x 8" 0, "8 x 4" 1), with the names that are given, or the numbers themselves.
std::string tickList(const std::vector<double>& places, const std::vector<std::string>& names) {
  std::string list;
  for (std::size_t k = 0; k < places.size(); ++k) {
    list.append(list.empty() ? "(" : ", ");
    list.append(gnuplotText(names.empty() ? shortest(places[k]) : names[k])).append(" ");
    list.append(shortest(places[k]));
  }
  return list.empty() ? "auto" : list + ')';
}

void addLinearAxes(std::string& script, const Figure& figure) {
  // Room at the sides, since points and error bars have a width.
  constexpr double part = 0.03;
  const Range x = rangeOf(figure, &PlotPoint::x);
  const double room = x.first < x.last ? part * (x.last - x.first) : 1.0;
  addLine(script, "unset logscale; set offsets 0, 0, graph 0.05, graph 0.05");
  addLine(script, "set xrange [" + shortest(x.first - room) + ':' + shortest(x.last + room) + ']');
  std::vector<double> places;
  for (std::size_t k = 0; k < figure.ticks.size(); ++k) places.push_back(static_cast<double>(k));
  addLine(script, "set xtics " + tickList(places, figure.ticks));
  addLine(script, "set ytics auto");
}

void addLogarithmicAxes(std::string& script, const Figure& figure) {
  addLine(script, "set logscale xy; set offsets; set xrange [*:*]");
  const Range x = rangeOf(figure, &PlotPoint::x), y = rangeOf(figure, &PlotPoint::y);
  addLine(script, "set xtics " + tickList(logarithmicTicks(x.first, x.last), {}));
  addLine(script, "set ytics " + tickList(logarithmicTicks(y.first, y.last), {}));
}

void addAxes(std::string& script, const Figure& figure) {
  addLine(script, "set xlabel " + gnuplotText(figure.xLabel));
  addLine(script, "set ylabel " + gnuplotText(figure.yLabel));
  if (figure.logarithmic)
    addLogarithmicAxes(script, figure);
  else
    addLinearAxes(script, figure);
  std::size_t longest = 0;
  for (const Curve& curve : figure.curves) longest = std::max(longest, curve.name.size());
  constexpr std::size_t lettersOfALine = 96, lettersOfASymbol = 8;
  addLine(script, "set key maxcols " + std::to_string(std::max<std::size_t>(
                                           1, lettersOfALine / (longest + lettersOfASymbol))));
  // The title of the key stands apart from the label of the axis.
  if (figure.curves.size() > 1 && !figure.keyTitle.empty())
    addLine(script, std::string(R"(set key title "\n".)").append(gnuplotText(figure.keyTitle)));
  else
    addLine(script, "set key title");
}

std::string colourOf(std::size_t curve) { return " lc rgb '#01010" + std::to_string(curve + 1) + "'"; }
static_assert(kMostCurves < 10, "a colour has a digit for the curve");

/// How a curve is drawn, without its title.
std::string styleOf(const Figure& figure, std::size_t curve, bool errors) {
  if (figure.bands) return "using 1:2 with lines lw 1.5" + colourOf(curve);
  return (errors ? "using 1:2:3:4 with yerrorlines pt " : "using 1:2 with linespoints pt ") +
         std::to_string(kShapes.at(curve)) + " ps 0.7 lw 1.5" + colourOf(curve);
}

void addPlot(std::string& script, const Figure& figure) {
  const bool errors = errorsAreKnown(figure);
  const std::size_t n = figure.curves.size();
  std::vector<std::string> elements;
  for (std::size_t k = 0; errors && figure.bands && k < n; ++k)
    elements.push_back("$curve" + std::to_string(k) + " using 1:3:4 with filledcurves" + colourOf(k) +
                       " fs transparent solid 0.25 noborder notitle");
  for (std::size_t k = 0; k < n; ++k)
    elements.push_back("$curve" + std::to_string(k) + ' ' + styleOf(figure, k, errors) +
                       (n == 1 ? " notitle" : " title " + gnuplotText(figure.curves[k].name)));
  for (std::size_t k = 0; k < elements.size(); ++k)
    script.append(k == 0 ? "plot " : ", \\\n  ").append(elements[k]);
  script += '\n';
}

/// The last line that is not empty, which says what is wrong.
std::string lastLineOf(const std::string& text) {
  const std::size_t end = text.find_last_not_of(" \n");
  if (end == std::string::npos) return "no reason given";
  const std::size_t before = text.find_last_of('\n', end);
  const std::size_t begin = text.find_first_not_of(" \n", before == std::string::npos ? 0 : before);
  return onOneLine(std::string_view(text).substr(begin, end + 1 - begin));
}

}  // namespace

std::string gnuplotText(const std::string& text) {
  std::string quoted = "'";
  for (const char c : onOneLine(text)) {
    if (c == '\'') quoted += '\'';
    quoted += c;
  }
  return quoted + "'";
}

std::string gnuplotScript(const std::vector<const Figure*>& figures) {
  std::string script =
      "set encoding utf8\n"
      "set terminal svg size 760,440 dynamic noenhanced font 'sans-serif,14' rounded\n"
      "set border 3\n"
      "set tics nomirror out scale 0.6\n"
      "set grid lw 1 dt solid lc rgb '#010100'\n"
      "set bars 0.6\n"
      "set autoscale fix\n"
      "set key outside below center horizontal Left reverse samplen 2\n";
  for (const Figure* figure : figures) {
    addData(script, *figure);
    addAxes(script, *figure);
    addPlot(script, *figure);
  }
  return script;
}

std::string runGnuplot(const std::string& script) {
  // Without the user's own settings.
  const ProgramResult result = runProgram("gnuplot", {"-d", "-"}, script);
  if (result.isMissing)
    throw StudyError("gnuplot, which draws the figures, is not installed: install the package gnuplot-nox");
  if (result.status != 0) throw StudyError("gnuplot failed: " + lastLineOf(result.errors));
  return result.output;
}

std::vector<std::string> drawFigures(const std::vector<const Figure*>& figures) {
  if (figures.empty()) return {};
  const std::string output = runGnuplot(gnuplotScript(figures));
  constexpr std::string_view end = "</svg>";
  std::vector<std::string> drawn;
  std::size_t from = 0;
  for (std::size_t at = output.find(end); at != std::string::npos; at = output.find(end, from)) {
    drawn.push_back(output.substr(from, at + end.size() - from));
    from = at + end.size();
  }
  if (drawn.size() != figures.size())
    throw StudyError("gnuplot drew " + std::to_string(drawn.size()) + " of " +
                     std::to_string(figures.size()) + " figures");
  return drawn;
}

}  // namespace quorvane
