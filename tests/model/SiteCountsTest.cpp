#include <gtest/gtest.h>

#include "TestModel.h"
#include "model/SiteCounts.h"

namespace quorvane {
namespace {

TEST(SiteCounts, CountEverySiteOfARectangleOnce) {
  auto model = makeModel(4, 3, 5);
  fillLattice(*model, 1);
  model->setSiteValue(0, 0, 3);
  model->setSiteValue(2, 4, 3);
  model->setSiteValue(2, 0, 0);
  EXPECT_EQ(countSites(*model), (SiteCounts{1, 12, 0, 2}));
}

TEST(SiteCounts, AreZeroWithoutALattice) {
  const auto model = std::make_unique<TestModel>();
  EXPECT_EQ(countSites(*model), SiteCounts{});
}

TEST(SiteCounts, GiveTheShareOfATypeInAllSites) {
  const SiteCounts counts = {1, 12, 0, 2};
  EXPECT_EQ(shareOfSites(counts, 0), 1.0 / 15);
  EXPECT_EQ(shareOfSites(counts, 1), 0.8);
  EXPECT_EQ(shareOfSites(counts, 2), 0.0);
}

TEST(SiteCounts, HaveNoShareOfATypeThatCannotBeOrOfNoSites) {
  const SiteCounts counts = {1};
  EXPECT_EQ(shareOfSites(counts, -1), 0.0);
  EXPECT_EQ(shareOfSites(counts, kMaxPixelTypes), 0.0);
  EXPECT_EQ(shareOfSites(SiteCounts{}, 0), 0.0);
}

}  // namespace
}  // namespace quorvane
