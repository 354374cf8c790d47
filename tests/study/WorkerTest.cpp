#include "StudyTestSupport.h"
#include "document/ModelDocument.h"
#include "study/StudyResults.h"
#include "study/Worker.h"

namespace quorvane {
namespace {

class AWorker : public testing::Test {
 protected:
  StudyFolder makeFolder() const {
    put(folder_ / "ising.quorvane", isingDocument());
    put(folder_ / "small.toml", kSmallStudy);
    return StudyFolder::forStudy(folder_ / "small.toml", folder_ / "results");
  }

  TemporaryFolder folder_;
  StudyFolder results_ = makeFolder();
  RunMaker maker_{results_.study(), results_.documentText()};
};

TEST_F(AWorker, MakesARunAndKeepsIt) {
  Worker worker(results_, maker_);
  const Report report = worker.work(4, 7, [] { return true; });
  EXPECT_EQ(report.what, Report::kMade);
  EXPECT_EQ(report.worker, 4);
  EXPECT_EQ(report.run, 7);
  StudyResults found(results_);
  ASSERT_EQ(found.made().size(), 1u);
  EXPECT_EQ(bytesOf(found.result(found.made()[0])), bytesOf(*maker_.make(7, [] { return true; })));
}

TEST_F(AWorker, DropsARunIfItIsTold) {
  Worker worker(results_, maker_);
  EXPECT_EQ(worker.work(0, 7, [] { return false; }).what, Report::kDropped);
  EXPECT_TRUE(StudyResults(results_).made().empty());
}

TEST_F(AWorker, SaysWhyAResultIsNotKept) {
  std::filesystem::remove_all(results_.shards());
  Worker worker(results_, maker_);
  const Report report = worker.work(0, 7, [] { return true; });
  EXPECT_EQ(report.what, Report::kNotKept);
  EXPECT_THAT(report.reason, testing::HasSubstr("No such file or directory"));
}

TEST_F(AWorker, SaysWhyARunFailed) {
  Worker worker(results_, maker_);
  const Report report = worker.work(0, 7, []() -> bool { throw StudyError("the lattice\nis gone"); });
  EXPECT_EQ(report.what, Report::kFailed);
  EXPECT_EQ(report.reason, "the lattice\\nis gone");
  EXPECT_EQ(worker.work(0, 7, []() -> bool { throw std::bad_alloc(); }).reason, kOutOfMemory);
}

}  // namespace
}  // namespace quorvane
