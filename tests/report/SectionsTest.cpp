#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Sections.h"

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const std::vector<std::string> kSpins = {"Down", "Up"};

Study studyOf(std::vector<std::string> first, std::vector<std::string> second) {
  Study study;
  study.axes = {{.of = Setting::kRule, .name = "A", .field = "parameter", .values = std::move(first)},
                {.of = Setting::kType, .name = "Up", .field = "field", .values = std::move(second)}};
  return study;
}

std::vector<double> ysOf(const Curve& curve) {
  std::vector<double> ys;
  for (const PlotPoint& point : curve.points) ys.push_back(point.y);
  return ys;
}

TEST(PointSections, HaveAFigureOverEachAxisWithACurveForEachValueOfTheOthers) {
  const Grid grid(studyOf({"0.5", "0.1"}, {"0", "1", "2"}));
  const Table points = tableIn(
      "point,A,F,replicas,energy_mean,energy_error\n"
      "0,0.5,0,4,50,1\n1,0.5,1,4,51,1\n2,0.5,2,4,52,1\n3,0.1,0,4,10,2\n4,0.1,1,4,11,2\n5,0.1,2,4,12,2\n",
      "points.csv");
  const auto sections = pointSections(grid, points, kSpins);
  ASSERT_EQ(sections.size(), 1u);
  EXPECT_EQ(sections[0].title, "Energy");
  EXPECT_EQ(sections[0].fileName, "energy.csv");
  EXPECT_EQ(csvOf(sections[0].table), csvOf(points));
  ASSERT_EQ(sections[0].figures.size(), 2u);
  const Figure& first = sections[0].figures[0];
  EXPECT_EQ(first.xLabel, "A: parameter");
  EXPECT_EQ(first.yLabel, "Energy (kT)");
  EXPECT_EQ(first.keyTitle, "Up: field");
  ASSERT_EQ(first.curves.size(), 3u);
  EXPECT_EQ(first.curves[1].name, "1");
  EXPECT_EQ(first.curves[1].points[0].x, 0.1) << "by x, not in the order of the study";
  EXPECT_THAT(ysOf(first.curves[1]), ElementsAre(11, 51));
  EXPECT_EQ(first.curves[1].points[0].error, 2);
  ASSERT_EQ(sections[0].figures[1].curves.size(), 2u);
  EXPECT_THAT(ysOf(sections[0].figures[1].curves[0]), ElementsAre(50, 51, 52));
}

TEST(PointSections, LeaveOutWhatIsNoNumberAndSayIfCurvesAreLeftOut) {
  std::vector<std::string> many;
  std::string text = "point,A,F,replicas,energy_mean,energy_error\n";
  for (int k = 0; k < 20; ++k) {
    many.push_back(std::to_string(k));
    text += std::to_string(k) + ",1," + std::to_string(k) + ",4," + (k == 0 ? "nan,nan" : "3,1") + '\n';
  }
  // The second value of the first axis has no runs yet.
  const Grid grid(studyOf({"1", "2"}, many));
  const auto sections = pointSections(grid, tableIn(text, "points.csv"), kSpins);
  const Figure& over = sections[0].figures[0];
  EXPECT_LE(over.curves.size(), kMostCurves);
  EXPECT_THAT(over.caption, HasSubstr("Not all values of Up: field are shown"));
  const Figure& single = sections[0].figures[1];
  ASSERT_EQ(single.curves.size(), 1u);
  EXPECT_EQ(single.curves[0].points.size(), 19u);
}

TEST(PointSections, OfASinglePointHaveItsValues) {
  const Grid grid(studyOf({"1"}, {"2"}));
  const Table points =
      tableIn("point,A,F,replicas,energy_mean,energy_error\n0,1,2,4,50.123,1.57\n", "points.csv");
  const auto sections = pointSections(grid, points, kSpins);
  EXPECT_EQ(sections[0].text, "50.1 ± 1.6 (kT)");
  EXPECT_TRUE(sections[0].figures.empty());
}

TEST(PointSections, DrawAFunctionOverItsArgument) {
  const Grid grid(studyOf({"1", "2"}, {"0"}));
  const Table points = tableIn(
      "point,A,F,replicas,c_0_1_mean,c_0_1_error,c_0_2_mean,c_0_2_error,c_1_1_mean,c_1_1_error\n"
      "0,1,0,4,0.2,0.1,0.1,0.1,9,1\n1,2,0,4,0.4,0.1,nan,nan,8,1\n",
      "points.csv");
  const auto sections = pointSections(grid, points, kSpins);
  ASSERT_EQ(sections.size(), 2u);
  EXPECT_EQ(sections[0].title, "Pair correlation of Down");
  EXPECT_EQ(sections[0].fileName, "c_0.csv");
  EXPECT_EQ(sections[0].table.names.size(), 8u);
  const Figure& figure = sections[0].figures.at(0);
  EXPECT_EQ(figure.xLabel, "Distance (sites)");
  ASSERT_EQ(figure.curves.size(), 2u);
  EXPECT_THAT(ysOf(figure.curves[0]), ElementsAre(0.2, 0.1));
  EXPECT_THAT(ysOf(figure.curves[1]), ElementsAre(0.4));
}

TEST(SeriesSections, HaveBandsAndLogarithmicAxesWhereTheyShowAPower) {
  const Grid grid(studyOf({"1"}, {"0", "1"}));
  const Table series = tableIn(
      "point,A,F,sweep,length_0_mean,length_0_error,count_0_mean,count_0_error\n"
      "0,1,0,0,1,0.1,0,0\n0,1,0,10,2,0.1,5,1\n0,1,0,20,4,0.1,6,1\n"
      "1,1,1,0,2,0.1,0,0\n1,1,1,10,3,0.1,5,1\n1,1,1,20,5,0.1,7,1\n",
      "series.csv");
  const auto sections = seriesSections(grid, series, kSpins);
  ASSERT_EQ(sections.size(), 2u);
  EXPECT_EQ(sections[0].fileName, "series-length_0.csv");
  ASSERT_EQ(sections[0].figures.size(), 2u);
  const Figure& linear = sections[0].figures[0];
  EXPECT_TRUE(linear.bands);
  EXPECT_FALSE(linear.logarithmic);
  ASSERT_EQ(linear.curves.size(), 2u);
  EXPECT_THAT(ysOf(linear.curves[0]), ElementsAre(1, 2, 4));
  const Figure& powers = sections[0].figures[1];
  EXPECT_TRUE(powers.logarithmic);
  EXPECT_THAT(ysOf(powers.curves[0]), ElementsAre(2, 4)) << "time 0 has no logarithm";
  EXPECT_EQ(sections[1].figures.size(), 1u) << "5 to 7 is less than a factor of two";
}

TEST(SeriesSections, DrawAFunctionAfterTheLastSweep) {
  const Grid grid(studyOf({"1"}, {"0"}));
  const Table series = tableIn(
      "point,A,F,sweep,s_0_1_mean,s_0_1_error,s_0_2_mean,s_0_2_error\n0,1,0,0,1,0,2,0\n0,1,0,10,8,0,3,0\n",
      "series.csv");
  const auto sections = seriesSections(grid, series, kSpins);
  ASSERT_EQ(sections.size(), 1u);
  const Figure& figure = sections[0].figures.at(0);
  EXPECT_EQ(figure.caption, "Structure factor of Down after the last sweep.");
  EXPECT_THAT(ysOf(figure.curves.at(0)), ElementsAre(8, 3));
}

}  // namespace
}  // namespace quorvane
