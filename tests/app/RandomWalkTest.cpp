#include "RandomWalk.h"

namespace quorvane {
namespace {

struct Walk {
  unsigned seed;
  const char* start;  ///< name of an example document, or empty for Initialise
};

void PrintTo(const Walk& walk, std::ostream* out) {
  *out << "seed " << walk.seed << " from " << (*walk.start ? walk.start : "an empty window");
}

class RandomWalk : public RandomWalkTest, public ::testing::WithParamInterface<Walk> {};

TEST_P(RandomWalk, NeverLeavesTheControlsAndTheModelInDisagreement) {
  ASSERT_NO_FATAL_FAILURE(begin(GetParam().start));
  ASSERT_NO_FATAL_FAILURE(walk(GetParam().seed, Pace::kHasty));
  EXPECT_GT(model().sweepsDone(), 0);
  ASSERT_NO_FATAL_FAILURE(expectThatTheSystemCanBeSavedAndOpened());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWalk,
                         ::testing::Values(Walk{1, ""}, Walk{2, ""}, Walk{3, ""},
                                           Walk{4, "growth-from-a-seed"}, Walk{5, "phase-separation"}));

}  // namespace
}  // namespace quorvane
