#include <gtest/gtest.h>

#include "DocumentSupport.h"

namespace quorvane {
namespace {

/// A line of the sample, counted from 0, and a value for it outside the limits.
struct Violation {
  std::size_t line;
  const char* text;
  const char* why;
};

void expectRefused(const std::string& text, std::size_t line, const std::string& why) {
  const auto model = freshModel();
  const std::string before = stateOf(*model);
  int headers = 0;
  const OpenResult result = readDocument(*model, text, [&headers](const DocumentHeader&) { ++headers; });
  EXPECT_EQ(result.status, OpenStatus::kRefused);
  EXPECT_EQ(result.message, "line " + std::to_string(line + 1) + ": " + why);
  EXPECT_EQ(stateOf(*model), before);
  EXPECT_EQ(headers, 0);
}

class Limit : public testing::TestWithParam<Violation> {};

TEST_P(Limit, ViolationIsReportedWithItsLineAndChangesNothing) {
  const auto& [line, text, why] = GetParam();
  expectRefused(joined(sampleWith(line, text)), line, why);
}

INSTANTIATE_TEST_SUITE_P(
    OfADocument, Limit,
    testing::Values(
        Violation{0, "0", "number of sites across must be 1 to 256, not \"0\""},
        Violation{0, "257", "number of sites across must be 1 to 256, not \"257\""},
        Violation{0, "-1", "number of sites across must be 1 to 256, not \"-1\""},
        Violation{1, "0", "number of sites upwards must be 1 to 256, not \"0\""},
        Violation{1, "257", "number of sites upwards must be 1 to 256, not \"257\""},
        Violation{1, "many\t\x01", "number of sites upwards must be 1 to 256, not \"many??\""},
        Violation{2, "0", "number of pixel types must be 1 to 10, not \"0\""},
        Violation{2, "11", "number of pixel types must be 1 to 10, not \"11\""},
        Violation{2, "-1", "number of pixel types must be 1 to 10, not \"-1\""},
        Violation{
            2, "99999999999999999999999999999999999999999999999",
            "number of pixel types must be 1 to 10, not \"9999999999999999999999999999999999999999...\""},
        Violation{kFirstSite, "2", "pixel type of site (0, 0) must be 0 to 1, not \"2\""},
        Violation{kFirstSite + 4, "-1", "pixel type of site (1, 1) must be 0 to 1, not \"-1\""},
        Violation{kFirstType + 2, "2", "masquerade of pixel type 0 must be -1 to 1, not \"2\""},
        Violation{kSecondType + 2, "-2", "masquerade of pixel type 1 must be -1 to 1, not \"-2\""},
        Violation{kNumRulesLine, "51", "number of rules must be 0 to 50, not \"51\""},
        Violation{kNumRulesLine, "-1", "number of rules must be 0 to 50, not \"-1\""},
        Violation{kFirstRule + 4, "2", "end point A of rule 0 must be -1 to 1, not \"2\""},
        Violation{kFirstRule + 4, "-2", "end point A of rule 0 must be -1 to 1, not \"-2\""},
        Violation{kFirstRule + 9 + 5, "2", "end point B of rule 1 must be -1 to 1, not \"2\""},
        Violation{kFirstRule + 9 + 5, "-2", "end point B of rule 1 must be -1 to 1, not \"-2\""},
        Violation{kFirstRule + 36 + 8, "2", "facilitation type of rule 4 must be -1 to 1, not \"2\""},
        Violation{kFirstRule + 36 + 8, "-2", "facilitation type of rule 4 must be -1 to 1, not \"-2\""}));

TEST(Limits, FirstViolationIsReported) {
  Lines lines = sampleWith(kFirstRule + 4, "9");
  lines[kFirstSite] = "9";
  expectRefused(joined(lines), kFirstSite, "pixel type of site (0, 0) must be 0 to 1, not \"9\"");
}

/// A one-site document of one pixel type and some rules of a kind.
Lines withRules(int numRules, const char* type, const char* endA, const char* endB) {
  Lines lines = {"1", "1", "1", "0", "Only", "0", "-1",
                 "0", "0", "0", "0", "1",    "0", std::to_string(numRules)};
  for (int r = 0; r < numRules; ++r)
    for (const char* line : {"rule", "0", "0", type, endA, endB, "0.5", "0", "0"}) lines.push_back(line);
  return lines;
}
constexpr std::size_t kFirstRuleOfOneSite = 14;

TEST(Limits, LargestSystemIsAccepted) {
  const auto model = freshModel();
  EXPECT_EQ(readDocument(*model, joined(withRules(50, "0", "0", "0"))).status, OpenStatus::kOpened);
  EXPECT_EQ(model->getNumRules(), 50);
  Lines large = {"256", "256", "10"};
  large.resize(3 + 256 * 256, "9");
  for (int t = 0; t < 10; ++t)
    for (const char* line : {"type", "0", "9", "0", "0", "0", "0", "1", "0"}) large.push_back(line);
  large.push_back("0");
  const auto largest = freshModel();
  EXPECT_EQ(readDocument(*largest, joined(large)).status, OpenStatus::kOpened);
  EXPECT_EQ(largest->getSiteValue(255, 255), 9);
}

TEST(Limits, ReversibleFlipsMayTakeTwoEntriesOfARow) {
  const auto model = freshModel();
  EXPECT_EQ(readDocument(*model, joined(withRules(25, "1", "-1", "0"))).status, OpenStatus::kOpened);
  EXPECT_EQ(model->varAccessibleRulesForSiteIDCount[0], kMaxRules);
  expectRefused(
      joined(withRules(26, "1", "-1", "0")), kFirstRuleOfOneSite + 25 * 9 + 3,
      "rule 25 does not fit: pixel type 0 has 50 rules already, a reversible flip counting once for "
      "each of its ends");
}

TEST(Limits, InteractionsAndUnknownTypesTakeNoEntryOfARow) {
  for (const char* type : {"3", "4", "-1"}) {
    const auto model = freshModel();
    EXPECT_EQ(readDocument(*model, joined(withRules(50, type, "-1", "-1"))).status, OpenStatus::kOpened);
    EXPECT_EQ(model->varAccessibleRulesForSiteIDCount[0], 0);
  }
}

TEST(Limits, RowsIncludeTheEntriesOfAnEarlierDocument) {
  const auto model = freshModel();
  Lines cut = withRules(30, "2", "0", "-1");
  cut.pop_back();
  EXPECT_EQ(readDocument(*model, joined(cut).substr(0, joined(cut).size() - 1)).status,
            OpenStatus::kCutShort);
  ASSERT_EQ(model->varAccessibleRulesForSiteIDCount[0], 29);
  const std::string before = stateOf(*model);
  const OpenResult refused = readDocument(*model, joined(withRules(22, "0", "-1", "0")));
  EXPECT_EQ(refused.status, OpenStatus::kRefused);
  EXPECT_EQ(refused.message.substr(0, 10), "line 207: ");
  EXPECT_EQ(stateOf(*model), before);
  EXPECT_EQ(readDocument(*model, joined(withRules(21, "0", "-1", "0"))).status, OpenStatus::kOpened);
  EXPECT_EQ(model->getNumRules(), 21);
}

TEST(Limits, IncompleteRuleTakesNoEntryOfARow) {
  Lines lines = withRules(26, "1", "-1", "0");
  lines.pop_back();
  std::string text = joined(lines);
  text.pop_back();
  const auto model = freshModel();
  EXPECT_EQ(readDocument(*model, text).status, OpenStatus::kCutShort);
  EXPECT_EQ(model->getNumRules(), 25);
}

}  // namespace
}  // namespace quorvane
