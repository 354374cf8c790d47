#include "SettingsTest.h"

namespace quorvane {
namespace {

TEST(Names, LeadToTheOneThatHasThem) {
  const auto model = namedModel();
  EXPECT_EQ(typeNamed(*model, "Bare ground"), 0);
  EXPECT_EQ(ruleNamed(*model, "Turn = back"), 1);
  EXPECT_EQ(ruleNamed(*model, "Attraction"), 3);
}

TEST(Names, MayBeIndicesFromZero) {
  const auto model = namedModel();
  EXPECT_EQ(typeNamed(*model, "#2"), 2);
  EXPECT_EQ(ruleNamed(*model, "#0"), 0);
}

TEST(Names, OfNothingAreRefusedWithTheNamesThatThereAre) {
  const auto model = namedModel();
  EXPECT_EQ(errorOf([&] { typeNamed(*model, "Bush"); }),
            "no pixel type is called \"Bush\"; there are #0 \"Bare ground\", #1 \"Tree\", #2 \"Tree\"");
  for (const char* name : {"", "growth", "Growth ", "#4", "#-1", "#", "#1x", "# 1", "#99999999999999999999"})
    EXPECT_THAT(errorOf([&] { ruleNamed(*model, name); }), testing::StartsWith("no rule is called")) << name;
}

TEST(Names, OfSeveralAreRefusedWithTheirIndices) {
  const auto model = namedModel();
  EXPECT_EQ(errorOf([&] { typeNamed(*model, "Tree"); }),
            "several pixel types are called \"Tree\": #1 \"Tree\", #2 \"Tree\"");
}

TEST(Names, WhereThereIsNoRuleSaySo) {
  LatticeModel& model = *std::make_unique<LatticeModel>().release();
  const std::unique_ptr<LatticeModel> owner(&model);
  model.awakeFromNib();
  EXPECT_EQ(errorOf([&] { ruleNamed(model, "Growth"); }), "no rule is called \"Growth\"; there is none");
}

TEST(Names, NumbersHaveAPointAndNothingElse) {
  EXPECT_EQ(realIn("0.25"), 0.25);
  EXPECT_EQ(realIn("-1e-3"), -1e-3);
  EXPECT_EQ(realIn(".5"), 0.5);
  for (const char* text :
       {"", "-", ".", "abc", "1,5", "1.5 ", " 1", "+1", "inf", "nan", "0x10", "1e999", "--1"})
    EXPECT_THAT(errorOf([&] { realIn(text); }), testing::EndsWith("is not a number")) << text;
}

}  // namespace
}  // namespace quorvane
