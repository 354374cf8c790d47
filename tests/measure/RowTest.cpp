#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>

#include "measure/Row.h"

namespace quorvane {
namespace {

std::string textOf(Value value) {
  std::string text;
  appendText(text, value);
  return text;
}

TEST(Row, HasIntegersAndRealNumbersInTheOrderTheyWereAdded) {
  Row row;
  row.add(3);
  row.add(0.5F);
  row.add(std::size_t{7});
  EXPECT_EQ(row.values(), (std::vector<Value>{std::int64_t{3}, 0.5, std::int64_t{7}}));
  row.clear();
  EXPECT_TRUE(row.values().empty());
}

TEST(Row, WritesIntegersWithoutPoint) {
  EXPECT_EQ(textOf(std::int64_t{0}), "0");
  EXPECT_EQ(textOf(std::int64_t{-5}), "-5");
  EXPECT_EQ(textOf(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(Row, WritesRealNumbersWithSeventeenDigits) {
  EXPECT_EQ(textOf(0.1), "0.10000000000000001");
  EXPECT_EQ(textOf(1.0 / 3.0), "0.33333333333333331");
  EXPECT_EQ(textOf(-0.25), "-0.25");
  EXPECT_EQ(textOf(2.0), "2");
  EXPECT_EQ(textOf(1e100), "1e+100");
  EXPECT_EQ(textOf(-0.0), "-0");
}

TEST(Row, WritesWhatIsNoNumberWithoutSign) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(textOf(nan), "nan");
  EXPECT_EQ(textOf(std::copysign(nan, -1.0)), "nan");
  EXPECT_EQ(textOf(std::numeric_limits<double>::infinity()), "inf");
  EXPECT_EQ(textOf(-std::numeric_limits<double>::infinity()), "-inf");
}

TEST(Row, WritesRealNumbersThatReadBackToTheSameBits) {
  std::mt19937_64 source(1);
  for (int k = 0; k < 10000; ++k) {
    const std::uint64_t bits = source();
    double number = 0.0;
    std::memcpy(&number, &bits, sizeof number);
    if (!std::isfinite(number)) continue;
    EXPECT_EQ(std::strtod(textOf(number).c_str(), nullptr), number);
  }
}

TEST(Row, DoesNotDependOnTheLocale) {
  ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
  EXPECT_EQ(textOf(1.5), "1.5");
  EXPECT_EQ(textOf(std::int64_t{1234567}), "1234567");
  std::setlocale(LC_ALL, "C");
}

TEST(Ratio, OfNothingIsNan) {
  EXPECT_TRUE(std::isnan(ratio(0, 0)));
  EXPECT_EQ(ratio(1, 3), 1.0 / 3.0);
  EXPECT_EQ(ratio(-1, 4), -0.25);
}

}  // namespace
}  // namespace quorvane
