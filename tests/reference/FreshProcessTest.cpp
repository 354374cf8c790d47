#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "Process.h"

namespace quorvane {
namespace {

using ::testing::ElementsAre;

/// The numbers that a separate process prints.
std::vector<double> firstDraws(const std::string& of, int count) {
  const Finished finished = run(FIRST_DRAWS, {of, std::to_string(count)});
  EXPECT_EQ(finished.status, 0);
  std::istringstream numbers(finished.out);
  return {std::istream_iterator<double>(numbers), std::istream_iterator<double>()};
}

TEST(FreshProcess, DrawsTheSameThreeValuesFirst) {
  EXPECT_THAT(firstDraws("engine", 3),
              ElementsAre(0.32136549381539226, 0.84746248042210937, 0.35341121396049857));
}

TEST(FreshProcess, DrawsTheSameNumbersWhileAnotherThreadDrawsFromTheCLibrary) {
  const auto undisturbed = firstDraws("engine", 1000);
  constexpr int starts = 20;
  for (int start = 0; start < starts; ++start) ASSERT_EQ(firstDraws("disturbed", 1000), undisturbed);
}

TEST(FreshProcess, DrawsTheSameNumbersAsAnotherFreshProcess) {
  const auto draws = firstDraws("engine", 10'000);
  ASSERT_EQ(draws.size(), 10'000u);
  EXPECT_EQ(draws, firstDraws("engine", 10'000));
}

TEST(FreshProcess, EqualsTheSeededCLibraryThroughTheShuffleTable) {
  const auto draws = firstDraws("engine", 10'000);
  ASSERT_EQ(draws.size(), 10'000u);
  EXPECT_EQ(draws, firstDraws("reference", 10'000));
}

}  // namespace
}  // namespace quorvane
