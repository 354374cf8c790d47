#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "Grid.h"
#include "Ticks.h"

namespace quorvane {
namespace {

using testing::ElementsAre;

Axis axisOf(const char* name, std::size_t n) {
  Axis axis{.of = Setting::kRule, .name = name, .field = "parameter", .values = {}};
  for (std::size_t k = 0; k < n; ++k) axis.values.push_back(std::to_string(k) + ".5");
  return axis;
}

TEST(Grid, SquaresAreNumbersAndOtherSidesAreNames) {
  Study study;
  study.sides = {{16, 16}, {32, 32}};
  EXPECT_THAT(Grid(study).axes()[0].xs, ElementsAre(16, 32));
  EXPECT_TRUE(Grid(study).axes()[0].isNumber);
  study.sides = {{16, 16}, {64, 48}};
  const Grid grid(study);
  EXPECT_FALSE(grid.axes()[0].isNumber);
  EXPECT_THAT(grid.axes()[0].values, ElementsAre("16 × 16", "64 × 48"));
  EXPECT_THAT(grid.axes()[0].xs, ElementsAre(0, 1));
}

TEST(Grid, AxesWithOneValueAreNotVaried) {
  Study study;
  study.sides = {{16, 16}};
  study.axes = {axisOf("A", 1), axisOf("B", 3)};
  const Grid grid(study);
  EXPECT_EQ(grid.axes().size(), 3u);
  EXPECT_THAT(grid.varied(), ElementsAre(2));
  EXPECT_EQ(grid.valuesOf(2, {0, 2}), "16, 2.5");
  EXPECT_EQ(grid.labelsOf({0, 2}), "Side of the lattice, B: parameter");
}

TEST(Grid, ShowsWholeCombinationsWithTheEndsOfEachAxis) {
  Study study;
  study.axes = {axisOf("A", 7), axisOf("B", 2)};
  const Grid grid(study);
  std::set<std::string> shown;
  for (std::int64_t point = 0; point < numPoints(study); ++point)
    if (grid.isShown(point, {0, 1}, 8)) shown.insert(grid.valuesOf(point, {0, 1}));
  EXPECT_THAT(shown, ElementsAre("0.5, 0.5", "0.5, 1.5", "2.5, 0.5", "2.5, 1.5", "4.5, 0.5", "4.5, 1.5",
                                 "6.5, 0.5", "6.5, 1.5"));
}

TEST(Grid, ShowsAllIfTheyAreFew) {
  Study study;
  study.axes = {axisOf("A", 8)};
  const Grid grid(study);
  for (std::int64_t point = 0; point < 8; ++point) EXPECT_TRUE(grid.isShown(point, {0}, 8));
}

TEST(LogarithmicTicks, AreFewOverManyDecadesAndManyOverFew) {
  EXPECT_THAT(logarithmicTicks(0.5, 20000), ElementsAre(1, 10, 100, 1000, 10000));
  EXPECT_THAT(logarithmicTicks(5, 499), ElementsAre(5, 10, 20, 50, 100, 200));
  EXPECT_THAT(logarithmicTicks(28, 61), ElementsAre(30, 40, 50, 60));
  EXPECT_THAT(logarithmicTicks(31, 39), ElementsAre());
}

}  // namespace
}  // namespace quorvane
