#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>

#include "PrintText.h"
#include "app/FixedDecimals.h"

namespace quorvane {
namespace {

/// The tests run in the C locale, whose format the panel's numbers have.
QString printed(double value, int decimals) {
  char text[512];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return QString::fromLatin1(text);
}

TEST(FixedDecimals, RoundsATieToTheEvenDigit) {
  EXPECT_EQ(fixedDecimals(0.0625, 3), "0.062");
  EXPECT_EQ(fixedDecimals(0.1875, 3), "0.188");
  EXPECT_EQ(fixedDecimals(0.3125, 3), "0.312");
  EXPECT_EQ(fixedDecimals(-0.0625, 3), "-0.062");
  EXPECT_EQ(fixedDecimals(2.5, 0), "2");
}

TEST(FixedDecimals, RoundsTheExactValueAndNotItsShortestText) {
  // Below and above the tie that their shortest texts show.
  EXPECT_EQ(fixedDecimals(1.0005, 3), "1.000");
  EXPECT_EQ(fixedDecimals(0.0015, 3), "0.002");
}

TEST(FixedDecimals, KeepsTheSignOfZero) {
  EXPECT_EQ(fixedDecimals(0.0, 3), "0.000");
  EXPECT_EQ(fixedDecimals(-0.0, 3), "-0.000");
  EXPECT_EQ(fixedDecimals(-0.0001, 3), "-0.000");
}

TEST(FixedDecimals, ShowsInfinitiesNaNAndTheLargestNumbers) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  constexpr double largest = std::numeric_limits<double>::max();
  for (const double value : {infinity, -infinity, largest, -largest, std::nan(""), -std::nan("")})
    EXPECT_EQ(fixedDecimals(value, 3), printed(value, 3));
}

TEST(FixedDecimals, EqualsPrintfForNumbersOfAllSizes) {
  std::mt19937_64 random(1);
  constexpr int sixteenths = 160;
  for (int k = -sixteenths; k <= sixteenths; ++k) {
    EXPECT_EQ(fixedDecimals(k / 16.0, 3), printed(k / 16.0, 3));
    EXPECT_EQ(fixedDecimals(k / 2000.0, 3), printed(k / 2000.0, 3));
  }
  for (int k = 0; k < 20'000; ++k) {
    const auto anyBits = std::bit_cast<double>(random());
    ASSERT_EQ(fixedDecimals(anyBits, 3), printed(anyBits, 3));
    const double ordinary = static_cast<double>(static_cast<std::int64_t>(random())) / 1e18;
    ASSERT_EQ(fixedDecimals(ordinary, 3), printed(ordinary, 3));
  }
}

}  // namespace
}  // namespace quorvane
