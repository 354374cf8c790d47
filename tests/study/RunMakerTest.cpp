#include <sstream>

#include "Process.h"
#include "StudyTestSupport.h"
#include "study/RunCommand.h"
#include "study/RunMaker.h"

namespace quorvane {
namespace {

constexpr auto kGoOn = [] { return true; };

/// Rows of a CSV behind the names, as numbers.
std::vector<std::vector<double>> numbersIn(const std::string& csv) {
  std::vector<std::vector<double>> rows;
  std::istringstream lines(csv);
  std::string line;
  std::getline(lines, line);
  while (std::getline(lines, line)) {
    rows.emplace_back();
    std::istringstream cells(line);
    for (std::string cell; std::getline(cells, cell, ',');) rows.back().push_back(std::stod(cell));
  }
  return rows;
}

/// The rows that the runner writes if it is called as runCommand says.
std::vector<std::vector<double>> rowsByHand(const Study& study, std::int64_t run) {
  const TemporaryFolder folder;
  put(folder / "ising.quorvane", isingDocument());
  const std::string command = "cd '" + folder.path().string() +
                              "' && PATH=" + std::filesystem::path(QUORVANE_BATCH).parent_path().string() +
                              ":$PATH " + runCommand(study, "ising.quorvane", run);
  const Finished finished = quorvane::run("/bin/sh", {"-c", command});
  EXPECT_EQ(finished.status, 0) << finished.err;
  return numbersIn(contentOf(folder / ("run-" + std::to_string(run) + ".csv")));
}

TEST(RunMaker, GivesWhatTheCommandOfARunGives) {
  const Study study = smallStudy();
  RunMaker maker(study, isingDocument());
  // Not in order, since a run must not depend on the one before it.
  for (const std::int64_t run : {35, 0, 7, 20, 11, 6}) {
    const auto result = maker.make(run, kGoOn);
    ASSERT_TRUE(result);
    const auto rows = rowsByHand(study, run);
    ASSERT_EQ(rows.size(), 9u);
    ASSERT_EQ(rows[0].size(), result->moments.size() + 1);
    for (std::size_t column = 0; column < result->moments.size(); ++column) {
      double sum = 0.0, squares = 0.0;
      for (const auto& row : rows) {
        if (row[0] < 10) continue;
        sum += row[column + 1];
        squares += row[column + 1] * row[column + 1];
      }
      ASSERT_EQ(result->moments[column].mean, sum / 7) << run << ' ' << column;
      ASSERT_EQ(result->moments[column].square, squares / 7) << run << ' ' << column;
    }
  }
}

TEST(RunMaker, SeriesHasEveryMeasurementFromTheStart) {
  Study study = smallStudy();
  RunMaker maker(study, isingDocument());
  const auto result = maker.make(4, kGoOn);
  ASSERT_TRUE(result);
  study.observables = study.series;
  const auto rows = rowsByHand(study, 4);
  ASSERT_EQ(result->series.size(), rows.size() * 3);
  for (std::size_t row = 0; row < rows.size(); ++row)
    for (std::size_t column = 0; column < 3; ++column)
      ASSERT_EQ(result->series[row * 3 + column], rows[row][column + 1]);
}

TEST(RunMaker, KeepsTheLatticeOfTheDocumentWithoutSidesAndShares) {
  Study study = smallStudy();
  study.sides.clear();
  study.fill.clear();
  study.axes.pop_back();
  RunMaker maker(study, isingDocument());
  const auto first = maker.make(1, kGoOn);
  const auto again = maker.make(1, kGoOn);
  ASSERT_TRUE(first && again);
  EXPECT_EQ(bytesOf(*first), bytesOf(*again));
  const auto rows = rowsByHand(study, 1);
  double sum = 0.0;
  for (const auto& row : rows)
    if (row[0] >= 10) sum += row[1];
  EXPECT_EQ(first->moments[0].mean, sum / 7);
}

TEST(RunMaker, StopsWhenToldSo) {
  RunMaker maker(smallStudy(), isingDocument());
  int asked = 0;
  EXPECT_FALSE(maker.make(0, [&] { return ++asked < 3; }));
  EXPECT_EQ(asked, 3);
}

TEST(RunMaker, KnowsTheColumnsOfEachSides) {
  const RunMaker maker(smallStudy(), isingDocument());
  EXPECT_EQ(maker.shapeOf(5).numSites, 64);
  EXPECT_EQ(maker.shapeOf(6).numSites, 72);
  EXPECT_EQ(maker.shapeOf(0).columns.size(), 1u + 1 + 2 * 4 + 2);
  EXPECT_EQ(maker.shapeOf(6).columns.size(), 1u + 1 + 2 * 3 + 2);
  EXPECT_EQ(maker.shapeOf(6).series.size(), 3u);
}

TEST(RunMaker, RefusesAStudyThatDoesNotFitItsDocument) {
  const auto refusal = [](const std::function<void(Study&)>& change) {
    Study study = smallStudy();
    change(study);
    return studyErrorOf([&] { RunMaker(study, isingDocument()); });
  };
  EXPECT_THAT(
      refusal([](Study& study) { study.axes[0].name = "Gravity"; }),
      testing::StartsWith("\"small.toml\": line 14: [[vary]]: no rule is called \"Gravity\"; there are"));
  for (std::size_t place = 0; place < 3; ++place)
    EXPECT_EQ(refusal([place](Study& study) { study.axes[0].values[place] = "11"; }),
              "\"small.toml\": line 14: [[vary]]: parameter: 11 is not from -10 to 10");
  EXPECT_THAT(refusal([](Study& study) { study.fill[0].type = "Spin left"; }),
              testing::StartsWith("\"small.toml\": line 11: fill: no pixel type is called \"Spin left\""));
  EXPECT_THAT(refusal([](Study& study) { study.observables = "entropy"; }),
              testing::StartsWith("\"small.toml\": line 7: observables: "));
  EXPECT_THAT(refusal([](Study& study) { study.series = "entropy"; }),
              testing::StartsWith("\"small.toml\": line 22: observables: "));
  EXPECT_THAT(studyErrorOf([&] { RunMaker(smallStudy(), "12\n"); }),
              testing::StartsWith("\"small.toml\": line 1: document \"ising.quorvane\": "));
}

TEST(RunMaker, RefusesWhatIsVariedTwiceUnderAnyName) {
  Study study = smallStudy();
  study.axes.push_back(study.axes[0]);
  study.axes[2].line = 30;
  study.axes[2].name = "#1";
  EXPECT_EQ(studyErrorOf([&] { RunMaker(study, isingDocument()); }),
            "\"small.toml\": line 30: [[vary]]: the parameter of \"#1\" is varied twice");
}

}  // namespace
}  // namespace quorvane
