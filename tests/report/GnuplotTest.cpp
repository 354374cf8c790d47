#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "Gnuplot.h"
#include "Svg.h"

namespace quorvane {
namespace {

using testing::HasSubstr;
using testing::Not;

Figure figureOf(std::size_t curves) {
  Figure figure{
      .caption = "A caption.", .xLabel = "x", .yLabel = "y", .keyTitle = "Key", .ticks = {}, .curves = {}};
  for (std::size_t k = 0; k < curves; ++k)
    figure.curves.push_back({.name = std::to_string(k), .points = {{1, 2, 0.5}, {2, 3, 0.5}}});
  return figure;
}

TEST(GnuplotText, IsNeverTakenForACommand) {
  EXPECT_EQ(gnuplotText("plain"), "'plain'");
  EXPECT_EQ(gnuplotText("it's"), "'it''s'");
  EXPECT_EQ(gnuplotText("a\n'; system 'x"), "'a\\n''; system ''x'");
}

TEST(GnuplotScript, HasErrorBarsIfAllErrorsAreKnown) {
  Figure figure = figureOf(1);
  EXPECT_THAT(gnuplotScript({&figure}), HasSubstr("1 2 1.5 2.5\n"));
  EXPECT_THAT(gnuplotScript({&figure}), HasSubstr("with yerrorlines"));
  figure.curves[0].points[1].error = std::nan("");
  EXPECT_THAT(gnuplotScript({&figure}), Not(HasSubstr("with yerrorlines")));
  EXPECT_THAT(gnuplotScript({&figure}), HasSubstr("with linespoints"));
}

TEST(GnuplotScript, HasBandsWithinALogarithmicAxis) {
  Figure figure = figureOf(2);
  figure.bands = figure.logarithmic = true;
  figure.curves[0].points[0].error = 7;
  const std::string script = gnuplotScript({&figure});
  EXPECT_THAT(script, HasSubstr("1 2 0.002 9\n"));
  EXPECT_THAT(script, HasSubstr("with filledcurves"));
  EXPECT_THAT(script, HasSubstr("set logscale xy"));
}

TEST(DrawFigures, GivesAnSvgForEach) {
  const Figure one = figureOf(1), eight = figureOf(kMostCurves);
  Figure named = figureOf(2);
  named.ticks = {"8 × 8", "a 'b' & <c>"};
  named.xLabel = named.keyTitle = named.curves[0].name = "it's a_{b}^c & <d> \"e\" \\n";
  Figure powers = figureOf(2);
  powers.logarithmic = true;
  const auto drawn = drawFigures({&one, &eight, &named, &powers});
  ASSERT_EQ(drawn.size(), 4u);
  for (const std::string& svg : drawn) EXPECT_THAT(svg, testing::EndsWith("</svg>"));
  EXPECT_THAT(drawn[2], HasSubstr("it's a_{b}^c &amp; &lt;d>"));
  EXPECT_TRUE(drawFigures({}).empty());
}

TEST(SvgForPage, HasIdsOfItsOwnAndColoursOfThePage) {
  const Figure figure = figureOf(2);
  const std::string svg = svgForPage(drawFigures({&figure}).at(0), "Energy \"E\"", 17);
  EXPECT_THAT(svg, testing::StartsWith("<svg role=\"img\" aria-label=\"Energy &quot;E&quot;\""));
  EXPECT_THAT(svg, HasSubstr("var(--curve-2)"));
  EXPECT_THAT(svg, HasSubstr("var(--grid)"));
  EXPECT_THAT(svg, HasSubstr("'#figure-17-gpPt"));
  EXPECT_THAT(svg, Not(HasSubstr("'#gpPt")));
  EXPECT_THAT(svg, Not(HasSubstr("rgb(")));
  EXPECT_THAT(svg, Not(HasSubstr("black")));
  EXPECT_THAT(svg, Not(HasSubstr("<title>")));
}

}  // namespace
}  // namespace quorvane
