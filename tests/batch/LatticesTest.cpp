#include "RunnerTest.h"
#include "batch/Results.h"
#include "output/LatticeArray.h"

namespace quorvane {
namespace {

using testing::HasSubstr;

class Lattices : public Runner {
 protected:
  const std::string array_ = (folder_ / "lattices.npy").string();
};

TEST_F(Lattices, AreTheSitesOfEveryRecord) {
  ASSERT_EQ(runBatchProgram({kExample, "--sweeps", "25", "--every", "10", "--lattices", array_}).status, 0);
  restartRandomNumbers();
  const auto model = freshModel();
  ASSERT_EQ(openDocument(*model, kExample).status, OpenStatus::kOpened);
  std::string expected = arrayHeader(4, *model) + arrayRecord(*model);
  for (const int sweeps : {10, 10, 5}) {
    model->runSweeps(sweeps);
    expected += arrayRecord(*model);
  }
  EXPECT_EQ(contentOf(array_), expected);
}

TEST_F(Lattices, HaveTheRightHeaderAfterAStop) {
  BatchProcess run(
      {kExample, "--sweeps", kForever, "--every", "5", "--remake", "16x8", "--lattices", array_});
  const auto partial = partialFileOf(run.id(), "lattices.npy");
  ASSERT_TRUE(waitUntil([&] { return sizeOf(partial) > 10'000; }));
  run.signal(SIGTERM);
  EXPECT_EQ(run.wait().status, -SIGTERM);
  const std::string content = contentOf(array_);
  constexpr std::size_t header = 128, record = 16 * 8;
  ASSERT_EQ((content.size() - header) % record, 0u);
  const std::size_t records = (content.size() - header) / record;
  EXPECT_GT(records, 1u);
  EXPECT_THAT(content.substr(0, header), HasSubstr("'shape': (" + std::to_string(records) + ", 16, 8)"));
}

TEST_F(Lattices, CannotGoToStandardOutputOrAPipe) {
  const Finished finished = runBatchProgram({kExample, "--sweeps", "1", "--lattices", "-"});
  EXPECT_EQ(finished.status, 2);
  EXPECT_THAT(finished.err, HasSubstr("--lattices: needs a file, not standard output (-)"));
  const Finished device = runBatchProgram({kExample, "--sweeps", "1", "--lattices", "/dev/null"});
  EXPECT_EQ(device.status, 1);
  EXPECT_THAT(device.err, HasSubstr("\"/dev/null\": is no regular file, and its beginning is written again"));
}

TEST(LatticeArray, HasAHeaderOfTheSameLengthForAnyNumberOfRecords) {
  const auto model = freshModel();
  model->initializeLatticeModel(2, 256, 3);
  for (const std::int64_t records :
       {std::int64_t{0}, std::int64_t{7}, std::numeric_limits<std::int64_t>::max()}) {
    const std::string header = arrayHeader(records, *model);
    EXPECT_EQ(header.size(), 128u);
    EXPECT_EQ(header.back(), '\n');
    EXPECT_THAT(header, HasSubstr("(" + std::to_string(records) + ", 256, 3), }"));
  }
  model->setSiteValue(1, 2, 9);
  const std::string sites = arrayRecord(*model);
  EXPECT_EQ(sites.size(), 768u);
  EXPECT_EQ(sites[1 * 3 + 2], 9);
}

}  // namespace
}  // namespace quorvane
