#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "RunnerTest.h"
#include "batch/Progress.h"

namespace quorvane {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using namespace std::chrono_literals;

TEST(ProgressText, ShowsTheSweepsThePercentageAndTheTimeLeft) {
  EXPECT_EQ(progressText(250, 1000, 20s, 79), "sweep 250 of 1000, 25 %, 1 min 0 s left");
  EXPECT_EQ(progressText(0, 1000, 0s, 79), "sweep 0 of 1000, 0 %");
  EXPECT_EQ(progressText(5, 1000, 500ms, 79), "sweep 5 of 1000, 0 %");
}

TEST(ProgressText, ShowsTheTimeInItsTwoLargestUnits) {
  for (const auto& [elapsed, left] : {std::pair(45s, "45 s left"),
                                      {200s, "3 min 20 s left"},
                                      {3725s, "1 h 2 min left"},
                                      {90000s, "1 d 1 h left"}})
    EXPECT_THAT(progressText(500, 1000, elapsed, 79), EndsWith(left));
  EXPECT_THAT(progressText(1, 9'000'000'000'000'000'000, 1s, 99), EndsWith("more than 100 years left"));
}

TEST(ProgressText, EstimatesTheTimeLeftFromTheSweepsOfThisRun) {
  EXPECT_EQ(progressText(600, 1000, 10s, 79, 500), "sweep 600 of 1000, 60 %, 40 s left");
  EXPECT_EQ(progressText(500, 1000, 10s, 79, 500), "sweep 500 of 1000, 50 %");
}

TEST(ProgressText, FitsAnyWidth) {
  constexpr std::int64_t most = 9'000'000'000'000'000'000;
  for (int columns = 8; columns <= 200; ++columns)
    for (const std::int64_t total : {std::int64_t{10}, std::int64_t{1'000'000}, most})
      for (const std::int64_t done : {std::int64_t{0}, total / 3, total})
        EXPECT_LE(progressText(done, total, 5000s, columns).size(), static_cast<std::size_t>(columns));
  EXPECT_EQ(progressText(250, 1000, 20s, 20), "25 %, 1 min 0 s left");
  EXPECT_EQ(progressText(250, 1000, 20s, 19), "25 %");
}

/// The successive texts of the line.
std::vector<std::string> linesOf(const std::string& out) {
  const std::string erase = "\r\033[K";
  std::vector<std::string> lines;
  for (std::size_t start = 0, end; start < out.size(); start = end + erase.size()) {
    end = std::min(out.find(erase, start), out.size());
    lines.push_back(out.substr(start, end - start));
  }
  return lines;
}

bool someTellTheTimeLeft(const std::string& out) {
  constexpr std::size_t lines = 6;
  return linesOf(out).size() > lines && out.find(" left") != std::string::npos;
}

class ProgressOnATerminal : public Runner {
 protected:
  void SetUp() override {
    if (const auto why = whyNoTerminal(); !why.empty()) GTEST_SKIP() << why;
  }
  /// Too narrow for the sweeps, wide enough for any time left.
  static constexpr unsigned short kNarrow = 26;

  /// The texts of a run until there are enough. Unstopped, it would take minutes on any processor.
  std::vector<std::string> shown(const Terminal& screen) const {
    auto lines = linesOf(
        runBatchProgramOnTerminal(
            {kExample, "--sweeps", "10000000", "--populations", populations_, "--every", "10000000"}, screen)
            .out);
    // When it is stopped it prints a line that need not fit.
    if (lines.empty() || lines.back().find("stopped after") == std::string::npos)
      ADD_FAILURE() << "the run was not stopped";
    else
      lines.pop_back();
    return lines;
  }
};

TEST_F(ProgressOnATerminal, FitsItsWidthAndShowsTheTimeLeft) {
  for (const unsigned short columns : {kNarrow, static_cast<unsigned short>(200)}) {
    bool saysTimeLeft = false;
    for (const std::string& line : shown({.columns = columns, .isEnough = someTellTheTimeLeft})) {
      EXPECT_LT(line.size(), columns) << line;
      saysTimeLeft = saysTimeLeft || line.ends_with(" left");
    }
    EXPECT_TRUE(saysTimeLeft) << columns;
  }
}

TEST_F(ProgressOnATerminal, FitsTheNewWidthAfterAResize) {
  const auto isNarrow = [](const std::string& line) { return !line.empty() && !line.starts_with("sweep"); };
  const auto someAreNarrow = [&](const std::string& out) {
    const auto lines = linesOf(out);
    return std::count_if(lines.begin(), lines.end(), isNarrow) > 4;
  };
  const auto lines = shown({.columns = 200, .columnsBehindFirstLine = kNarrow, .isEnough = someAreNarrow});
  ASSERT_GT(lines.size(), 4u);
  EXPECT_THAT(lines[1], HasSubstr("sweep 0 of 10000000"));
  // Some texts may come before the program learns of the new width.
  const auto first = std::find_if(lines.begin(), lines.end(), isNarrow);
  EXPECT_GT(lines.end() - first, 3);
  for (auto line = first; line != lines.end(); ++line) EXPECT_LT(line->size(), kNarrow) << *line;
}

}  // namespace
}  // namespace quorvane
