#pragma once

#include <string>
#include <vector>

#include "Figure.h"

namespace quorvane {

/// The script that draws figures one after the other to standard output, as SVG of one size. Curve k has the
/// colour rgb(1, 1, k), k from 1, and the grid has rgb(1, 1, 0): the page decides how they look.
std::string gnuplotScript(const std::vector<const Figure*>& figures);

/// The same text without the "smart" meaning of anything in it, in quotation marks for gnuplot.
std::string gnuplotText(const std::string& text);

/// Runs gnuplot over a script. Returns its standard output. Throws StudyError if it is not installed, or
/// fails.
std::string runGnuplot(const std::string& script);

/// An SVG document of gnuplot for each figure, as it wrote them. Throws StudyError.
std::vector<std::string> drawFigures(const std::vector<const Figure*>& figures);

}  // namespace quorvane
