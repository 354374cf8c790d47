#include "RunnerTest.h"
#include "measure/Measurements.h"

namespace quorvane {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Measured : public Runner {
 protected:
  const std::string rows_ = (folder_ / "rows.csv").string();
};

TEST_F(Measured, RowsAreThoseOfTheModelAtTheSameSweeps) {
  const std::string list = "counts,energy,clusters,kept";
  ASSERT_EQ(runBatchProgram(
                {kExample, "--sweeps", "25", "--every", "10", "--measure", rows_, "--observables", list})
                .status,
            0);
  restartRandomNumbers();
  const auto model = freshModel();
  ASSERT_EQ(openDocument(*model, kExample).status, OpenStatus::kOpened);
  Measurements expected(list, snapshotOf(*model));
  std::string csv = expected.csvHeader() + expected.csvRow(0, snapshotOf(*model));
  for (const int sweep : {10, 20, 25}) {
    model->runSweeps(sweep == 25 ? 5 : 10);
    csv += expected.csvRow(sweep, snapshotOf(*model));
  }
  EXPECT_EQ(contentOf(rows_), csv);
}

TEST_F(Measured, BesidePopulationsChangesNothingInThem) {
  const std::vector<std::string> plain = {kExample, "--sweeps", "20", "--populations", populations_};
  ASSERT_EQ(runBatchProgram(plain).status, 0);
  const std::string alone = contentOf(populations_);
  auto both = plain;
  both.insert(both.end(), {"--measure", rows_, "--observables", "structure"});
  ASSERT_EQ(runBatchProgram(both).status, 0);
  EXPECT_EQ(contentOf(populations_), alone);
}

TEST_F(Measured, GoesToStandardOutput) {
  const Finished finished =
      runBatchProgram({kExample, "--sweeps", "1", "--measure", "-", "--observables", "counts"});
  EXPECT_EQ(finished.status, 0);
  EXPECT_THAT(finished.out, StartsWith("sweep,count_0,"));
}

TEST_F(Measured, StartsBehindTheChangesOfTheStart) {
  const Finished finished = runBatchProgram({kExample, "--sweeps", "0", "--remake", "10x10", "--fill", "#1=1",
                                             "--measure", "-", "--observables", "counts"});
  EXPECT_EQ(finished.out, "sweep,count_0,count_1,count_2,count_3\n0,0,100,0,0\n");
}

TEST_F(Measured, HelpNeedsNoDocument) {
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"--observables", "help"}, {"--observables=help"}}) {
    const Finished finished = runBatchProgram(words);
    EXPECT_EQ(finished.status, 0);
    EXPECT_THAT(finished.out, HasSubstr("\nenergy\n"));
    EXPECT_EQ(finished.err, "");
  }
}

TEST_F(Measured, NeedsBothOptions) {
  Finished finished = runBatchProgram({kExample, "--sweeps", "1", "--measure", rows_});
  EXPECT_EQ(finished.status, 2);
  EXPECT_THAT(finished.err, HasSubstr("--measure: needs --observables (--observables help lists them)"));
  finished = runBatchProgram({kExample, "--sweeps", "1", "--output", output_, "--observables", "counts"});
  EXPECT_EQ(finished.status, 2);
  EXPECT_THAT(finished.err, HasSubstr("--observables: needs --measure"));
}

TEST_F(Measured, RefusesAListThatMakesNoSenseAndWritesNothing) {
  for (const char* list : {"enrgy", "counts,,energy", "order:#0", "order:#0:#9", "order:#0:Nobody",
                           "counts,counts", "energy:#0", ",", "counts;energy"}) {
    const Finished finished =
        runBatchProgram({kExample, "--sweeps", "1", "--measure", rows_, "--observables", list});
    EXPECT_EQ(finished.status, 2) << list;
    EXPECT_THAT(finished.err, StartsWith("quorvane-batch: --observables: ")) << list;
    EXPECT_EQ(std::count(finished.err.begin(), finished.err.end(), '\n'), 1) << finished.err;
    EXPECT_FALSE(std::filesystem::exists(rows_));
  }
}

}  // namespace
}  // namespace quorvane
