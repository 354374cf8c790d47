#include <gtest/gtest.h>

#include "StudyProgressLine.h"

namespace quorvane {
namespace {

using std::chrono::seconds;

TEST(StudyProgressLine, HasABarTheRunsTheirRateAndTheTimeLeft) {
  const StudyProgress progress{.done = 120, .failed = 0, .total = 480, .before = 100};
  EXPECT_EQ(studyProgressText(progress, seconds(10), 200),
            "[=====               ] 120 of 480 runs, 2 a second, 3 min 0 s left");
}

TEST(StudyProgressLine, NamesFailedRunsWhichAreNotLeft) {
  const StudyProgress progress{.done = 30, .failed = 10, .total = 40, .before = 0};
  EXPECT_EQ(studyProgressText(progress, seconds(10), 200),
            "[====================] 30 of 40 runs, 10 failed, 3 a second, 0 s left");
}

TEST(StudyProgressLine, FirstSecondAndRunsOfBeforeGiveNoRate) {
  const StudyProgress made{.done = 3, .failed = 0, .total = 6, .before = 0};
  EXPECT_EQ(studyProgressText(made, std::chrono::milliseconds(999), 200),
            "[==========          ] 3 of 6 runs");
  const StudyProgress before{.done = 3, .failed = 0, .total = 6, .before = 3};
  EXPECT_EQ(studyProgressText(before, seconds(9), 200), "[==========          ] 3 of 6 runs");
}

TEST(StudyProgressLine, LeavesOutWhatDoesNotFit) {
  const StudyProgress progress{.done = 120, .failed = 0, .total = 480, .before = 100};
  const std::string whole = studyProgressText(progress, seconds(10), 200);
  const int length = static_cast<int>(whole.size());
  EXPECT_EQ(studyProgressText(progress, seconds(10), length), whole);
  EXPECT_EQ(studyProgressText(progress, seconds(10), length - 1),
            "120 of 480 runs, 2 a second, 3 min 0 s left");
  EXPECT_EQ(studyProgressText(progress, seconds(10), 20), "120 of 480 runs");
  EXPECT_EQ(studyProgressText(progress, seconds(10), 14), "25 %");
}

}  // namespace
}  // namespace quorvane
