#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "measure/MeasureError.h"
#include "measure/TypeNames.h"

namespace quorvane {
namespace {

const std::array<std::string, 4> kNames = {"solvent", "oil", "soap", "oil"};

std::string refusal(const std::string& text, std::span<const std::string> names = kNames) {
  try {
    return "resolved to " + std::to_string(resolveType(text, names));
  } catch (const MeasureError& error) {
    return error.what();
  }
}

TEST(TypeNames, AreNamesOrIndices) {
  EXPECT_EQ(resolveType("solvent", kNames), 0);
  EXPECT_EQ(resolveType("soap", kNames), 2);
  EXPECT_EQ(resolveType("3", kNames), 3);
  EXPECT_EQ(resolveType("#1", kNames), 1);
}

TEST(TypeNames, ThatFitNoTypeAreRefusedWithAllThatThereAre) {
  EXPECT_EQ(
      refusal("water"),
      "there is no pixel type \"water\"; there are #0 \"solvent\", #1 \"oil\", #2 \"soap\", #3 \"oil\"");
  for (const char* text :
       {"#4", "4", "-1", "#-1", "#", "#oil", "# 1", "#1 ", "+1", "#99999999999", "1.0", "Oil", "so"})
    EXPECT_THAT(refusal(text),
                testing::StartsWith("there is no pixel type \"" + std::string(text) + "\"; there are #0 "));
  EXPECT_THAT(refusal(""), testing::StartsWith("a pixel type is missing; there are #0 "));
}

TEST(TypeNames, ThatFitTwoTypesAreRefused) {
  EXPECT_EQ(refusal("oil"), "\"oil\" can mean the pixel types #1 and #3; write one of these instead");
}

TEST(TypeNames, ThatAreIndicesOfOtherTypesAreRefused) {
  const std::array<std::string, 3> numbers = {"1", "b", "2"};
  EXPECT_EQ(refusal("1", numbers), "\"1\" can mean the pixel types #0 and #1; write one of these instead");
  EXPECT_EQ(resolveType("2", numbers), 2);
  EXPECT_EQ(resolveType("#1", numbers), 1);
  EXPECT_EQ(resolveType("0", numbers), 0);
}

TEST(TypeNames, WithANumberSignAreAlwaysIndices) {
  const std::array<std::string, 2> names = {"#1", "#x"};
  EXPECT_EQ(resolveType("#1", names), 1);
  EXPECT_THAT(refusal("#x", names), testing::StartsWith("there is no pixel type \"#x\""));
}

TEST(TypeNames, AreQuotedOnOneLine) {
  EXPECT_EQ(quotedOnOneLine("two\nlines\t\x7f"), "\"two?lines??\"");
  EXPECT_EQ(quotedOnOneLine(""), "\"\"");
}

}  // namespace
}  // namespace quorvane
