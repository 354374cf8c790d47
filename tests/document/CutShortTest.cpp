#include <gtest/gtest.h>

#include "DocumentSupport.h"
#include "document/LineParsers.h"

namespace quorvane {
namespace {

struct NoSuchLine {};

/// Reads a document without any checks, line by line, and stops at the first missing line.
class PlainReader {
 public:
  PlainReader(LatticeModel& model, const Lines& lines) : model_(model), lines_(lines) {}

  void read() {
    const int imax = whole(), jmax = whole(), numTypes = whole();
    model_.initializeLatticeModel(numTypes, imax, jmax);
    for (int i = 0; i < imax; ++i)
      for (int j = 0; j < jmax; ++j) model_.setSiteValue(i, j, whole());
    for (int p = 0; p < numTypes; ++p) model_.reinitHistory(p);
    for (int p = 0; p < numTypes; ++p) readPixelType(p);
    const int numRules = whole();
    for (int r = 0; r < numRules; ++r) readRule(r);
  }

 private:
  void readPixelType(int p) {
    model_.setPixelName(p, next());
    model_.setPixelImmobile(p, whole());
    model_.setPixelMasqueradeAs(p, whole());
    const double red = real(), green = real(), blue = real();
    model_.setPixelColor(p, red, green, blue);
    model_.setPixelPersistence(p, real());
    model_.setPixelAlpha(p, real());
    model_.setPixelField(p, real());
  }

  void readRule(int r) {
    const std::string name = next();
    const int disabled = whole(), ignoreEnergy = whole(), type = whole(), endA = whole(), endB = whole();
    const double param = real();
    const int facNum = whole(), facPixel = whole();
    model_.makeNewRule(name, type, endA, endB);
    model_.setRuleDisabled(r, disabled);
    model_.setRuleIgnoreEnergy(r, ignoreEnergy);
    model_.setRuleParam(r, param);
    model_.setRuleFacNum(r, facNum);
    model_.setRuleFacPixel(r, facPixel);
    if (type == kPixelPixelInteraction) model_.setInteractionParams(r, param);
  }

  const std::string& next() {
    if (cursor_ >= lines_.size()) throw NoSuchLine();
    return lines_[cursor_++];
  }
  int whole() { return fileReadINTFromLine(next()); }
  double real() { return fileReadDBLFromLine(next()); }

  LatticeModel& model_;
  const Lines& lines_;
  std::size_t cursor_ = 0;
};

/// The first lines of the sample. With a line feed after the last one, an empty line follows it.
struct Cut {
  std::size_t numLines;
  bool finalLineFeed;

  std::string text() const {
    std::string text = joined({sampleLines().begin(), sampleLines().begin() + static_cast<long>(numLines)});
    if (!finalLineFeed && !text.empty()) text.pop_back();
    return text;
  }
  Lines lines() const {
    Lines lines(sampleLines().begin(), sampleLines().begin() + static_cast<long>(numLines));
    if (finalLineFeed || lines.empty()) lines.push_back("");
    return lines;
  }
};

class CutShort : public testing::TestWithParam<bool> {};

TEST_P(CutShort, DocumentIsAppliedUpToItsLastLine) {
  for (std::size_t numLines = 3; numLines < sampleLines().size(); ++numLines) {
    const Cut cut{numLines, GetParam()};
    const Lines lines = cut.lines();
    if (lines.size() == sampleLines().size()) continue;  // The empty line is read as the last value.
    const bool endsWithNoRules = lines.size() == kNumRulesLine + 1 && lines.back().empty();

    restartRandomNumbers();
    const auto expected = freshModel();
    if (endsWithNoRules)
      EXPECT_NO_THROW(PlainReader(*expected, lines).read());
    else
      EXPECT_THROW(PlainReader(*expected, lines).read(), NoSuchLine) << numLines;

    restartRandomNumbers();
    const auto model = freshModel();
    int headers = 0;
    const OpenResult result =
        readDocument(*model, cut.text(), [&headers](const DocumentHeader&) { ++headers; });
    EXPECT_EQ(stateOf(*model), stateOf(*expected)) << numLines;
    EXPECT_EQ(headers, 1);
    if (endsWithNoRules) {
      EXPECT_EQ(result.status, OpenStatus::kOpened);
      continue;
    }
    EXPECT_EQ(result.status, OpenStatus::kCutShort) << numLines;
    const std::string start = "line " + std::to_string(lines.size()) + ": the document ends before the ";
    EXPECT_EQ(result.message.substr(0, start.size()), start);
    EXPECT_GT(result.message.size(), start.size());
    EXPECT_EQ(result.message.find('\n'), std::string::npos);
  }
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutAFinalLineFeed, CutShort, testing::Bool());

TEST(CutShort, EmptyLastLineIsReadAsTheLastValue) {
  restartRandomNumbers();
  const Cut cut{sampleLines().size() - 1, true};
  const auto expected = freshModel();
  PlainReader(*expected, cut.lines()).read();
  restartRandomNumbers();
  const auto model = freshModel();
  EXPECT_EQ(readDocument(*model, cut.text()).status, OpenStatus::kOpened);
  EXPECT_EQ(stateOf(*model), stateOf(*expected));
  EXPECT_EQ(model->getRuleFacPixel(4), 0);
}

TEST(CutShort, NamesWhatWasExpectedNext) {
  const auto messageOf = [](std::size_t numLines) {
    return readDocument(*freshModel(), Cut{numLines, false}.text()).message;
  };
  EXPECT_EQ(messageOf(1), "line 1: the document ends before the number of sites upwards");
  EXPECT_EQ(messageOf(2), "line 2: the document ends before the number of pixel types");
  EXPECT_EQ(messageOf(3), "line 3: the document ends before the pixel type of site (0, 0)");
  EXPECT_EQ(messageOf(8), "line 8: the document ends before the pixel type of site (1, 2)");
  EXPECT_EQ(messageOf(9), "line 9: the document ends before the name of pixel type 0");
  EXPECT_EQ(messageOf(22), "line 22: the document ends before the green of pixel type 1");
  EXPECT_EQ(messageOf(27), "line 27: the document ends before the number of rules");
  EXPECT_EQ(messageOf(28), "line 28: the document ends before the name of rule 0");
  EXPECT_EQ(messageOf(72), "line 72: the document ends before the facilitation type of rule 4");
}

TEST(CutShort, FewerThanThreeLinesChangeNothing) {
  for (const char* text : {"", "2", "2\n", "2\n3", "2\n3\n", "\n", "\n\n"}) {
    const auto model = freshModel();
    const std::string before = stateOf(*model);
    int headers = 0;
    const OpenResult result = readDocument(*model, text, [&headers](const DocumentHeader&) { ++headers; });
    EXPECT_NE(result.status, OpenStatus::kOpened);
    EXPECT_NE(result.status, OpenStatus::kUnreadable) << "an empty file is one empty line";
    EXPECT_EQ(stateOf(*model), before);
    EXPECT_EQ(headers, 0);
  }
}

TEST(CutShort, ColourNeedsAllItsThreeLines) {
  restartRandomNumbers();
  const auto model = freshModel();
  readDocument(*model, Cut{kSecondType + 5, false}.text());
  restartRandomNumbers();
  const auto untouched = freshModel();
  untouched->initializeLatticeModel(2, 2, 3);
  EXPECT_EQ(model->getPixelColorR(1), untouched->getPixelColorR(1));
  EXPECT_EQ(model->getPixelColorG(1), untouched->getPixelColorG(1));
  EXPECT_EQ(model->getPixelMasqueradeAs(1), 0);
}

TEST(CutShort, TracesStartFromTheLatticeOnlyOnceItIsWhole) {
  const auto model = freshModel();
  restartRandomNumbers();
  readDocument(*model, Cut{kFirstType - 1, false}.text());
  restartRandomNumbers();
  const auto atRandom = freshModel();
  atRandom->initializeLatticeModel(2, 2, 3);
  for (int i = 0; i < 2; ++i)
    for (int j = 0; j < 3; ++j)
      EXPECT_EQ(model->varMobileHistory[1][i][j], atRandom->varMobileHistory[1][i][j]);
}

TEST(CutShort, ValueOutsideTheLimitsIsFoundFirstAndChangesNothing) {
  Lines lines = sampleWith(kFirstRule + 4, "2");
  lines.resize(kFirstRule + 6);
  const auto model = freshModel();
  const std::string before = stateOf(*model);
  const OpenResult result = readDocument(*model, joined(lines));
  EXPECT_EQ(result.status, OpenStatus::kRefused);
  EXPECT_EQ(stateOf(*model), before);
}

TEST(CutShort, AnotherDocumentCanBeOpenedAfterwards) {
  const auto model = freshModel();
  readDocument(*model, Cut{kFirstRule + 2 * kLinesPerBlock + 1, false}.text());
  EXPECT_EQ(model->getNumRules(), 2);
  EXPECT_EQ(readDocument(*model, joined(sampleLines())).status, OpenStatus::kOpened);
  EXPECT_EQ(writeDocument(*model), joined(sampleLines()));
  // The rows keep the entries of the first document.
  EXPECT_EQ(model->varAccessibleRulesForSiteIDCount[0], 4);
}

}  // namespace
}  // namespace quorvane
