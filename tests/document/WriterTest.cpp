#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include "DocumentSupport.h"

namespace quorvane {
namespace {

/// The value of a line of the document of a one-site model, by its index.
std::string lineOf(const LatticeModel& model, std::size_t index) {
  const std::string text = writeDocument(model);
  std::size_t begin = 0;
  for (; index > 0; --index) begin = text.find('\n', begin) + 1;
  return text.substr(begin, text.find('\n', begin) - begin);
}

std::unique_ptr<LatticeModel> oneSite() {
  auto model = freshModel();
  model->initializeLatticeModel(1, 1, 1);
  return model;
}
constexpr std::size_t kFieldLine = 12;

TEST(Writer, WritesEveryValueOnItsOwnLineInOrder) {
  const auto model = freshModel();
  model->initializeLatticeModel(2, 2, 3);
  const int sites[2][3] = {{0, 1, 1}, {0, 1, 0}};
  for (int i = 0; i < 2; ++i)
    for (int j = 0; j < 3; ++j) model->setSiteValue(i, j, sites[i][j]);
  model->setPixelName(0, "Empty space");
  model->setPixelColor(0, 0.1, 0.2, 0.3);
  model->setPixelPersistence(0, 0.4);
  model->setPixelAlpha(0, 0.5);
  model->setPixelField(0, -0.6);
  model->setPixelName(1, "Particle");
  model->setPixelImmobile(1, 1);
  model->setPixelMasqueradeAs(1, 0);
  model->setPixelColor(1, 0.9, 0.8, 0.7);
  model->setPixelPersistence(1, 0.95);
  model->setPixelAlpha(1, 0.25);
  model->setPixelField(1, 1.75);
  const auto addRule = [&](const char* name, int disabled, int ignore, int type, int a, int b, double param,
                           int facNum, int facPixel) {
    const int r = model->getNumRules();
    model->makeNewRule(name, type, a, b);
    model->setRuleDisabled(r, disabled);
    model->setRuleIgnoreEnergy(r, ignore);
    model->setRuleParam(r, param);
    model->setRuleFacNum(r, facNum);
    model->setRuleFacPixel(r, facPixel);
  };
  addRule("Grow", 0, 1, 0, 0, 1, 0.125, 3, 1);
  addRule("Flicker", 1, 0, 1, -1, 1, 0.5, 0, 0);
  addRule("Move", 0, 0, 2, 1, -1, 1.0, 0, 0);
  addRule("Attract", 0, 0, 3, 1, 1, -1.5, 0, 0);
  addRule("Repel, if ever", 1, 0, 3, 0, 1, 2.5, 0, -1);
  EXPECT_EQ(writeDocument(*model), joined(sampleLines()));
}

TEST(Writer, EndsAfterTheRuleCountOfAModelWithoutRules) {
  const auto model = oneSite();
  model->setPixelName(0, "Only");
  EXPECT_EQ(writeDocument(*model),
            "1\n1\n1\n0\nOnly\n0\n-1\n0.0000000000\n0.0000000000\n0.0000000000\n0.0000000000\n1.0000000000\n"
            "0.0000000000\n0\n");
}

TEST(Writer, HasAsManyLinesAsTheLayoutSays) {
  const auto model = freshModel();
  model->initializeLatticeModel(10, 17, 23);
  for (int r = 0; r < kMaxRules; ++r) model->makeNewRule("rule", kSwap, r % 10, -1);
  const std::string text = writeDocument(*model);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 3 + 17 * 23 + 9 * 10 + 1 + 9 * 50);
  EXPECT_EQ(text.back(), '\n');
}

TEST(Writer, WritesNamesUnquotedAndUntrimmed) {
  const auto model = oneSite();
  for (const char* name : {"", "  two blanks  ", "a \"quoted\" name", "-1", "tab\there"}) {
    model->setPixelName(0, name);
    EXPECT_EQ(lineOf(*model, 4), name);
  }
}

TEST(Writer, RoundsRealsToTenDecimals) {
  const auto model = oneSite();
  const auto written = [&](double value) {
    model->setPixelField(0, value);
    return lineOf(*model, kFieldLine);
  };
  EXPECT_EQ(written(1.0 / 3.0), "0.3333333333");
  EXPECT_EQ(written(2.0 / 3.0), "0.6666666667");
  EXPECT_EQ(written(-2.0 / 3.0), "-0.6666666667");
  EXPECT_EQ(written(4e-11), "0.0000000000");
  EXPECT_EQ(written(6e-11), "0.0000000001");
  EXPECT_EQ(written(1e20), "100000000000000000000.0000000000");
  EXPECT_EQ(written(-0.0), "-0.0000000000");
}

TEST(Writer, WritesEveryRealAsTheCLibraryDoes) {
  const auto model = oneSite();
  const auto expectSame = [&](double value) {
    model->setPixelField(0, value);
    char text[400];
    std::snprintf(text, sizeof text, "%.10f", value);
    EXPECT_EQ(lineOf(*model, kFieldLine), text);
  };
  for (const double value : {DBL_MAX, -DBL_MAX, DBL_MIN, 0.00000000005, 0.5e-10, 1.5e-10, 2.5e-10, 1e15 + 0.3,
                             std::numeric_limits<double>::infinity()})
    expectSame(value);
  std::mt19937_64 random(3);
  std::uniform_real_distribution<double> mantissa(-1.0, 1.0);
  std::uniform_int_distribution<int> exponent(-40, 60);
  for (int k = 0; k < 5000; ++k) expectSame(std::ldexp(mantissa(random), exponent(random)));
}

TEST(Writer, WritesWholeNumbersOfAnySize) {
  const auto model = oneSite();
  model->setPixelImmobile(0, std::numeric_limits<int>::min());
  model->setPixelMasqueradeAs(0, std::numeric_limits<int>::max());
  EXPECT_EQ(lineOf(*model, 5), "-2147483648");
  EXPECT_EQ(lineOf(*model, 6), "2147483647");
}

TEST(Writer, WritesTheSameUnderADecimalComma) {
  const auto model = freshModel();
  ASSERT_EQ(readDocument(*model, joined(sampleLines())).status, OpenStatus::kOpened);
  model->setPixelField(0, 1234567.5);
  model->setRuleFacNum(0, 1234567);
  const std::string before = writeDocument(*model);
  const GermanLocale german;
  if (!german.installed()) GTEST_SKIP() << "this system has no de_DE.UTF-8";
  EXPECT_EQ(writeDocument(*model), before);
  EXPECT_NE(before.find("\n1234567.5000000000\n"), std::string::npos);
}

}  // namespace
}  // namespace quorvane
