#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>

#include "DocumentSupport.h"
#include "document/LineParsers.h"

namespace quorvane {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(WholeLine, ReadsAnOptionalSignAndDigits) {
  EXPECT_EQ(fileReadINTFromLine("0"), 0);
  EXPECT_EQ(fileReadINTFromLine("42"), 42);
  EXPECT_EQ(fileReadINTFromLine("-7"), -7);
  EXPECT_EQ(fileReadINTFromLine("+7"), 7);
  EXPECT_EQ(fileReadINTFromLine("007"), 7);
}

TEST(WholeLine, SkipsBlanksBeforeTheNumber) {
  EXPECT_EQ(fileReadINTFromLine("   12"), 12);
  EXPECT_EQ(fileReadINTFromLine("\t\v\f\r\n -12"), -12);
}

TEST(WholeLine, IgnoresWhatFollowsTheNumber) {
  EXPECT_EQ(fileReadINTFromLine("12 sites"), 12);
  EXPECT_EQ(fileReadINTFromLine("12abc"), 12);
  EXPECT_EQ(fileReadINTFromLine("3.9"), 3);
  EXPECT_EQ(fileReadINTFromLine("5\r"), 5);
  EXPECT_EQ(fileReadINTFromLine("1e3"), 1);
  EXPECT_EQ(fileReadINTFromLine("0x10"), 0);
  EXPECT_EQ(fileReadINTFromLine("8-9"), 8);
}

TEST(WholeLine, WithoutANumberIsZero) {
  for (const char* line : {"", "   ", "abc", "-", "+", "--5", "+-5", "-+5", "- 5", "+ 5", ".5", "a5"})
    EXPECT_EQ(fileReadINTFromLine(line), 0) << '"' << line << '"';
}

TEST(WholeLine, GivesTheLow32BitsOfALongerNumber) {
  EXPECT_EQ(fileReadINTFromLine("2147483647"), 2147483647);
  EXPECT_EQ(fileReadINTFromLine("2147483648"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(fileReadINTFromLine("-2147483648"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(fileReadINTFromLine("-2147483649"), 2147483647);
  EXPECT_EQ(fileReadINTFromLine("4294967295"), -1);
  EXPECT_EQ(fileReadINTFromLine("4294967298"), 2);
  EXPECT_EQ(fileReadINTFromLine("-4294967298"), -2);
}

TEST(WholeLine, BeyondSixtyFourBitsIsClampedToTheNearestNumber) {
  EXPECT_EQ(fileReadINTFromLine("9223372036854775807"), -1);
  EXPECT_EQ(fileReadINTFromLine("9223372036854775808"), -1);
  EXPECT_EQ(fileReadINTFromLine("18446744073709551618"), -1);
  EXPECT_EQ(fileReadINTFromLine("99999999999999999999999999999"), -1);
  EXPECT_EQ(fileReadINTFromLine("-9223372036854775807"), 1);
  EXPECT_EQ(fileReadINTFromLine("-9223372036854775808"), 0);
  EXPECT_EQ(fileReadINTFromLine("-9223372036854775809"), 0);
  EXPECT_EQ(fileReadINTFromLine("-99999999999999999999999999999"), 0);
}

TEST(RealLine, ReadsSignFractionAndExponent) {
  EXPECT_EQ(fileReadDBLFromLine("0.2500000000"), 0.25);
  EXPECT_EQ(fileReadDBLFromLine("-3"), -3.0);
  EXPECT_EQ(fileReadDBLFromLine("+3.5"), 3.5);
  EXPECT_EQ(fileReadDBLFromLine("1.5e3"), 1500.0);
  EXPECT_EQ(fileReadDBLFromLine("1.5E-1"), 0.15);
  EXPECT_EQ(fileReadDBLFromLine("2e+2"), 200.0);
  EXPECT_EQ(fileReadDBLFromLine("7."), 7.0);
  EXPECT_EQ(fileReadDBLFromLine(".5"), 0.5);
}

TEST(RealLine, SkipsBlanksBeforeAndIgnoresTextAfter) {
  EXPECT_EQ(fileReadDBLFromLine("  \t0.5"), 0.5);
  EXPECT_EQ(fileReadDBLFromLine("0.5\r"), 0.5);
  EXPECT_EQ(fileReadDBLFromLine("0.5kT"), 0.5);
  EXPECT_EQ(fileReadDBLFromLine("1e"), 1.0);
  EXPECT_EQ(fileReadDBLFromLine("1e+"), 1.0);
  EXPECT_EQ(fileReadDBLFromLine("1.2.3"), 1.2);
}

TEST(RealLine, WithoutANumberIsZero) {
  for (const char* line :
       {"", " ", "abc", "-", "+", ".", "-.", "e5", "--1", "+-1", "inf", "-inf", "INFINITY", "nan", "-nan(5)"})
    EXPECT_EQ(fileReadDBLFromLine(line), 0.0) << '"' << line << '"';
}

TEST(RealLine, ReadsNoHexadecimalDigits) {
  EXPECT_EQ(fileReadDBLFromLine("0x1p4"), 0.0);
  EXPECT_EQ(fileReadDBLFromLine("0x1F"), 0.0);
}

TEST(RealLine, TooLargeIsInfinite) {
  EXPECT_EQ(fileReadDBLFromLine("1e309"), kInfinity);
  EXPECT_EQ(fileReadDBLFromLine("-1e309"), -kInfinity);
  EXPECT_EQ(fileReadDBLFromLine("1e99999999999999999999999"), kInfinity);
  EXPECT_EQ(fileReadDBLFromLine("0.001e999"), kInfinity);
  EXPECT_EQ(fileReadDBLFromLine("1" + std::string(400, '0')), kInfinity);
  EXPECT_EQ(fileReadDBLFromLine("1" + std::string(400, '0') + "e -999"), kInfinity);
  EXPECT_EQ(fileReadDBLFromLine("1.7976931348623157e308"), std::numeric_limits<double>::max());
}

TEST(RealLine, TooCloseToZeroIsZero) {
  EXPECT_EQ(fileReadDBLFromLine("1e-400"), 0.0);
  EXPECT_EQ(fileReadDBLFromLine("-1e-400"), 0.0);
  EXPECT_EQ(fileReadDBLFromLine("123456e-99999999999999999999"), 0.0);
  EXPECT_EQ(fileReadDBLFromLine("0." + std::string(500, '0') + "1"), 0.0);
  EXPECT_EQ(fileReadDBLFromLine("0e999999"), 0.0);
  EXPECT_EQ(fileReadDBLFromLine("5e-324"), std::numeric_limits<double>::denorm_min());
}

TEST(RealLine, ReadsBackEveryDoubleExactly) {
  std::mt19937_64 random(7);
  for (int k = 0; k < 20000; ++k) {
    const std::uint64_t bits = random();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isfinite(value)) continue;
    char text[64];
    std::snprintf(text, sizeof text, "%.17g", value);
    EXPECT_EQ(fileReadDBLFromLine(text), value) << text;
  }
}

TEST(Lines, ReadTheSameUnderADecimalComma) {
  const GermanLocale german;
  if (!german.installed()) GTEST_SKIP() << "this system has no de_DE.UTF-8";
  ASSERT_EQ(std::string(std::localeconv()->decimal_point), ",");
  EXPECT_EQ(fileReadDBLFromLine("0.7500000000"), 0.75);
  EXPECT_EQ(fileReadDBLFromLine("0,75"), 0.0);
  EXPECT_EQ(fileReadDBLFromLine("1e400"), kInfinity);
  EXPECT_EQ(fileReadINTFromLine("1.000"), 1);
  EXPECT_EQ(fileReadINTFromLine("-256"), -256);
}

}  // namespace
}  // namespace quorvane
