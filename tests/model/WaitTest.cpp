#include <gtest/gtest.h>

#include <limits>

#include "model/Wait.h"

namespace quorvane {
namespace {

constexpr std::int32_t kLargestCount = std::numeric_limits<std::int32_t>::max();

TEST(Wait, CountsToTenToTheTenthOverTheSpeedXorTen) {
  EXPECT_EQ(waitBound(5), 2'000'000'010);
  EXPECT_EQ(waitBound(1000), 10'000'010);
  EXPECT_EQ(waitBound(3'000'000), 3343);
  EXPECT_EQ(waitBound(1'000'000'000), 0);
  EXPECT_EQ(waitBound(kLargestCount), 14);
}

TEST(Wait, IsBoundlessForSpeedsBelowFiveAndNoneForNegativeSpeeds) {
  for (int speed = 0; speed < 5; ++speed) EXPECT_GE(waitBound(speed), kLargestCount) << speed;
  for (const int speed : {-1, -5, std::numeric_limits<std::int32_t>::min()}) EXPECT_LT(waitBound(speed), 0);
}

TEST(Wait, MakesOnePassMoreThanItsBound) {
  for (const int bound : {-1, 0, 1, 1000}) {
    int asked = 0;
    countBeyond([&] { return ++asked, bound; });
    EXPECT_EQ(asked, bound + 2);
  }
}

TEST(Wait, AsksForItsBoundAtEveryPass) {
  int asked = 0;
  countBeyond([&] { return ++asked < 40 ? kLargestCount : 0; });
  EXPECT_EQ(asked, 40);
}

TEST(Wait, NeverExceedsTheLargestCount) {
  int asked = 0;
  countBeyond([&] { return ++asked < 1000 ? kLargestCount : -1; }, kLargestCount - 3);
  EXPECT_EQ(asked, 1000);
}

}  // namespace
}  // namespace quorvane
