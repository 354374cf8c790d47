#include <deque>
#include <map>
#include <set>

#include "StudyTestSupport.h"
#include "study/StudyFolder.h"
#include "study/StudyResults.h"
#include "study/StudyRun.h"

namespace quorvane {
namespace {

using testing::ElementsAre;

/// A single worker whose runs end as told.
class ScriptedCrew : public Crew {
 public:
  /// The reports of a run, one after the other; runs without any are made.
  std::map<std::int64_t, std::deque<Report::What>> ends;
  std::vector<std::int64_t> given;

  int size() const override { return 1; }
  void give(int worker, std::int64_t run) override {
    EXPECT_EQ(worker, 0);
    given.push_back(run);
    Report report{.worker = 0, .run = run, .what = Report::kMade, .reason = {}};
    if (auto& left = ends[run]; !left.empty()) {
      report.what = left.front();
      report.reason = "reason " + std::to_string(left.size());
      left.pop_front();
    }
    reports_.push_back(report);
  }
  std::vector<Report> wait(std::chrono::milliseconds) override { return std::exchange(reports_, {}); }
  void stop() override {
    for (Report& report : reports_) report.what = Report::kDropped;
  }

 private:
  std::vector<Report> reports_;
};

class StudyOfTwelveRuns : public testing::Test {
 protected:
  StudyOfTwelveRuns() {
    put(folder_ / "ising.quorvane", isingDocument());
    std::string text = kSmallStudy;
    text.replace(text.find("replicas = 3"), 12, "replicas = 1");
    put(folder_ / "small.toml", text);
  }

  StudyFolder open() const { return StudyFolder::forStudy(folder_ / "small.toml", folder_ / "results"); }
  /// Gives the runs of a part to the crew.
  StudyProgress make(ScriptedCrew& crew, ShardPart part = {}) {
    const StudyFolder folder = open();
    StudyRun study(folder, StudyResults(folder), part);
    study.run(
        crew, [](const StudyProgress&) {}, [this] { return --steps_ > 0; });
    return study.progress();
  }

  TemporaryFolder folder_;
  int steps_ = 1000;
};

TEST_F(StudyOfTwelveRuns, GivesRunsInTheOrderOfTheirNumbers) {
  ScriptedCrew crew;
  const StudyProgress progress = make(crew);
  EXPECT_THAT(crew.given, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11));
  EXPECT_EQ(progress.done, 12);
  EXPECT_EQ(progress.failed, 0);
  EXPECT_EQ(progress.total, 12);
}

TEST_F(StudyOfTwelveRuns, GivesEveryFifthRunToAPartOfFive) {
  ScriptedCrew crew;
  EXPECT_EQ(make(crew, {.index = 1, .count = 5}).total, 3);
  EXPECT_THAT(crew.given, ElementsAre(1, 6, 11));
  ScriptedCrew none;
  EXPECT_EQ(make(none, {.index = 12, .count = 13}).total, 0);
  EXPECT_TRUE(none.given.empty());
}

TEST_F(StudyOfTwelveRuns, TriesAFailedRunTwiceMoreAfterTheOthers) {
  ScriptedCrew crew;
  crew.ends[3] = {Report::kFailed, Report::kDied};
  const StudyProgress progress = make(crew);
  EXPECT_THAT(crew.given, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 3, 3));
  EXPECT_EQ(progress.done, 12);
  EXPECT_TRUE(StudyResults(open()).failed().empty());
}

TEST_F(StudyOfTwelveRuns, KeepsARunThatFailsThreeTimesWithItsLastReason) {
  ScriptedCrew crew;
  crew.ends[3] = {Report::kFailed, Report::kDied, Report::kFailed};
  const StudyProgress progress = make(crew);
  EXPECT_EQ(std::count(crew.given.begin(), crew.given.end(), 3), 3);
  EXPECT_EQ(progress.done, 11);
  EXPECT_EQ(progress.failed, 1);
  StudyResults results(open());
  ASSERT_EQ(results.failed().size(), 1u);
  EXPECT_EQ(results.failed()[0].run, 3);
  EXPECT_THAT(results.result(results.failed()[0]).failure, testing::HasSubstr("reason 1"));
}

TEST_F(StudyOfTwelveRuns, EndsIfAResultCannotBeKept) {
  ScriptedCrew crew;
  crew.ends[2] = {Report::kNotKept};
  EXPECT_THAT(studyErrorOf([&] { make(crew); }), testing::HasSubstr("reason 1"));
  EXPECT_EQ(crew.given.back(), 2);
}

TEST_F(StudyOfTwelveRuns, StopsWithoutGivingMore) {
  ScriptedCrew crew;
  steps_ = 4;
  const StudyProgress progress = make(crew);
  EXPECT_LT(progress.done, 12);
  EXPECT_LT(crew.given.size(), 12u);
  const std::set<std::int64_t> once(crew.given.begin(), crew.given.end());
  EXPECT_EQ(once.size(), crew.given.size());
}

}  // namespace
}  // namespace quorvane
