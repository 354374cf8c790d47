#include "Figures.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <set>

#include "engine/f_ran0.h"

namespace quorvane::validation {
namespace {

std::string fixed(double value, int decimals) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

/// The number of decimals that shows two digits of an error.
int decimalsFor(double error) { return std::max(0, 1 - static_cast<int>(std::floor(std::log10(error)))); }

std::string signedDeviation(double deviation) {
  char text[64];
  std::snprintf(text, sizeof text, "%+.2f", deviation);
  return text;
}

std::string withError(const Estimate& measured) {
  const int decimals = decimalsFor(measured.error);
  return fixed(measured.value, decimals) + " ± " + fixed(measured.error, decimals);
}

std::string sumOf(const ChiSquared& chiSquared) { return "χ² = " + fixed(chiSquared.sum(), 1); }

std::string row(const std::string& what, const std::string& exact, const std::string& measured,
                double deviation) {
  return "| " + what + " | " + exact + " | " + measured + " | " + signedDeviation(deviation) + " |";
}

std::set<std::string> linesOfPage() {
  std::ifstream page(QUORVANE_VALIDATION_PAGE);
  std::set<std::string> lines;
  for (std::string line; std::getline(page, line);) lines.insert(line);
  return lines;
}

std::string nameOfSuite() {
  const std::string name = testing::UnitTest::GetInstance()->current_test_info()->test_suite_name();
  return name.substr(name.find('/') + 1);
}

/// Platforms with another generator draw other numbers, so the page applies only to those that draw like the
/// C library of GNU/Linux.
void publish(const std::string& kind, const std::string& line) {
  std::printf("figure %s %s %s\n", nameOfSuite().c_str(), kind.c_str(), line.c_str());
  if (!processRandomSource.drawsItself()) return;
  static const std::set<std::string> page = linesOfPage();
  EXPECT_TRUE(page.contains(line)) << "docs/validation.md lacks this row; scripts/validation writes it:\n"
                                   << line;
}

void expectWithin(const std::string& line, double deviation) {
  EXPECT_LE(std::abs(deviation), kBound) << line;  // Fails for NaN too.
  publish("agrees", line);
}

void expectBeyond(const std::string& line, double deviation) {
  EXPECT_GT(std::abs(deviation), kBound) << line;
  publish("rejects", line);
}

}  // namespace

ValidationTest::ValidationTest() { processRandomSource = RandomSource(); }

void ValidationTest::expectAgreement(const std::string& what, const Estimate& measured, double exact) {
  const double z = deviation(measured, exact);
  expectWithin(row(what, fixed(exact, decimalsFor(measured.error) + 1), withError(measured), z), z);
}

void ValidationTest::expectAgreement(const std::string& what, const std::string& exact,
                                     const std::string& measured, double deviation) {
  expectWithin(row(what, exact, measured, deviation), deviation);
}

void ValidationTest::expectAgreement(const std::string& what, const ChiSquared& chiSquared) {
  const double z = chiSquared.normalDeviate();
  expectWithin(row(what, fixed(chiSquared.degrees(), 0) + " degrees", sumOf(chiSquared), z), z);
}

void ValidationTest::expectRejection(const std::string& wrong, const Estimate& measured, double wrongValue) {
  const double z = deviation(measured, wrongValue);
  expectBeyond(row(wrong, fixed(wrongValue, decimalsFor(measured.error) + 1), withError(measured), z), z);
}

void ValidationTest::expectRejection(const std::string& wrong, const ChiSquared& chiSquared) {
  const double z = chiSquared.normalDeviate();
  expectBeyond(row(wrong, fixed(chiSquared.degrees(), 0) + " degrees", sumOf(chiSquared), z), z);
}

void ValidationTest::expectLongBlocks(const Blocks& blocks, int observable) {
  ASSERT_GE(blocks.numBlocks(), 50);
  EXPECT_LT(blocks.correlationOfNeighbours(observable), kBound / std::sqrt(blocks.numBlocks()));
}

}  // namespace quorvane::validation
