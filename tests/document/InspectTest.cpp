#include <gtest/gtest.h>

#include "DocumentSupport.h"
#include "document/ParsedDocument.h"
#include "engine/f_ran0.h"

namespace quorvane {
namespace {

TEST(Inspection, ReturnsTheContentOfADocument) {
  const auto model = freshModel();
  const auto [result, document] = inspectDocument(*model, joined(sampleLines()));
  EXPECT_EQ(result.status, OpenStatus::kOpened);
  EXPECT_EQ(result.message, "");
  ASSERT_TRUE(document.header);
  EXPECT_EQ(document.header->imax, 2);
  EXPECT_EQ(document.header->jmax, 3);
  EXPECT_EQ(document.sites.size(), 6U);
  ASSERT_EQ(document.types.size(), 2U);
  EXPECT_EQ(document.types[1].name.text(), sampleLines()[kSecondType]);
  ASSERT_EQ(document.rules.size(), 5U);
  EXPECT_EQ(document.rules[0].name.text(), sampleLines()[kFirstRule]);
}

TEST(Inspection, LeavesTheModelAndTheDrawsAsTheyAre) {
  const auto model = freshModel();
  const std::string before = stateOf(*model);
  restartRandomNumbers();
  const double first = fRandReal();
  restartRandomNumbers();
  const Inspection found = inspectDocument(*model, joined(sampleLines()));
  const auto scratch = std::make_unique<LatticeModel>();
  layOutLattice(*scratch, found.document);
  EXPECT_EQ(stateOf(*model), before);
  EXPECT_EQ(fRandReal(), first);
}

TEST(Inspection, GivesTheResultOfOpening) {
  Lines fewer = sampleLines();
  fewer.resize(kFirstRule + 4);
  const std::string texts[] = {joined(sampleWith(0, "300")),
                               joined(sampleWith(kFirstSite, "7")),
                               "",
                               "2\n",
                               joined(fewer),
                               "caf\xC3\xA9\n"};
  for (const std::string& text : texts) {
    const Inspection found = inspectDocument(*freshModel(), text);
    const OpenResult opened = readDocument(*freshModel(), text);
    EXPECT_EQ(found.result.status, opened.status) << text;
    EXPECT_EQ(found.result.message, opened.message) << text;
    EXPECT_NE(found.result.message, "") << text;
  }
}

TEST(Inspection, CountsTheRulesThatTheModelsRowsHoldAlready) {
  const std::string text = joined(sampleLines());
  const auto model = freshModel();
  model->varAccessibleRulesForSiteIDCount[0] = kMaxRules;
  EXPECT_EQ(inspectDocument(*model, text).result.status, OpenStatus::kRefused);
  EXPECT_EQ(inspectDocument(*model, text).result.message, readDocument(*model, text).message);
}

TEST(LaidOutLattice, HasTheSitesTracesAndColoursThatOpeningGives) {
  const std::string text = joined(sampleLines());
  const auto opened = freshModel(), laidOut = std::make_unique<LatticeModel>();
  readDocument(*opened, text);
  layOutLattice(*laidOut, inspectDocument(*freshModel(), text).document);
  ASSERT_EQ(laidOut->getIMax(), opened->getIMax());
  ASSERT_EQ(laidOut->getJMax(), opened->getJMax());
  ASSERT_EQ(laidOut->getNumPixelTypes(), opened->getNumPixelTypes());
  for (int t = 0; t < opened->getNumPixelTypes(); ++t) {
    EXPECT_EQ(laidOut->getPixelColorR(t), opened->getPixelColorR(t));
    EXPECT_EQ(laidOut->getPixelColorG(t), opened->getPixelColorG(t));
    EXPECT_EQ(laidOut->getPixelColorB(t), opened->getPixelColorB(t));
    EXPECT_EQ(laidOut->getPixelAlpha(t), opened->getPixelAlpha(t));
    EXPECT_EQ(laidOut->varMobileHistoryMax[t], opened->varMobileHistoryMax[t]);
    for (int i = 0; i < opened->getIMax(); ++i)
      for (int j = 0; j < opened->getJMax(); ++j) {
        EXPECT_EQ(laidOut->getSiteValue(i, j), opened->getSiteValue(i, j));
        EXPECT_EQ(laidOut->varMobileHistory[t][i][j], opened->varMobileHistory[t][i][j]);
      }
  }
}

TEST(LaidOutLattice, IsBlackWhereTheDocumentEndsEarlyAndGreyWithoutColours) {
  Lines cut = sampleLines();
  cut.resize(kFirstSite + 2);
  cut[kFirstSite + 1] = "1";
  std::string text = joined(cut);
  text.pop_back();
  const Inspection found = inspectDocument(*freshModel(), text);
  ASSERT_EQ(found.result.status, OpenStatus::kCutShort);
  ASSERT_EQ(found.document.sites.size(), 2U);
  const auto laidOut = std::make_unique<LatticeModel>();
  layOutLattice(*laidOut, found.document);
  EXPECT_EQ(laidOut->varMobileHistory[1][0][1], 1.0);
  for (int t = 0; t < 2; ++t) EXPECT_EQ(laidOut->varMobileHistory[t][1][2], 0.0);
  EXPECT_EQ(laidOut->getPixelColorR(0), 0.0);
  EXPECT_EQ(laidOut->getPixelColorR(1), 0.5);
  EXPECT_EQ(laidOut->getPixelColorB(1), 0.5);
}

}  // namespace
}  // namespace quorvane
