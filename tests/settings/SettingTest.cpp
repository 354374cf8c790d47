#include "SettingsTest.h"
#include "settings/Setting.h"

namespace quorvane {
namespace {

void set(LatticeModel& model, const std::string& text) { apply(settingIn(text), model); }

TEST(Setting, ChangesTheFieldsOfARule) {
  const auto model = namedModel();
  set(*model, "rule Growth parameter=0.25");
  EXPECT_EQ(model->getRuleParam(0), 0.25);
  set(*model, "rule Growth facilitation=8");
  EXPECT_EQ(model->getRuleFacNum(0), 8);
  set(*model, "rule #2 disabled=1");
  EXPECT_EQ(model->getRuleDisabled(2), 1);
  set(*model, "rule #2 disabled=0");
  EXPECT_EQ(model->getRuleDisabled(2), 0);
}

TEST(Setting, ChangesTheFieldsOfAPixelType) {
  const auto model = namedModel();
  set(*model, "type Bare ground field=-2.5");
  EXPECT_EQ(model->getPixelField(0), -2.5);
  set(*model, "type #1 immobile=1");
  EXPECT_EQ(model->getPixelImmobile(1), 1);
}

TEST(Setting, TakesAllBetweenTheFirstWordAndTheLastAsTheName) {
  const auto model = namedModel();
  set(*model, "  rule   Turn = back   parameter=0.75  ");
  EXPECT_EQ(model->getRuleParam(1), 0.75);
}

TEST(Setting, OfAnInteractionWritesItsPairEnergiesAsTheWindowDoes) {
  const auto model = namedModel();
  set(*model, "rule Attraction parameter=-1.5");
  EXPECT_EQ(model->getRuleParam(3), -1.5);
  EXPECT_EQ(model->getPixelIntConstant(1, 2), -1.5);
  EXPECT_EQ(model->getPixelIntConstant(2, 1), -1.5);

  set(*model, "rule Attraction disabled=1");
  EXPECT_EQ(model->getPixelIntConstant(1, 2), 0.0);
  EXPECT_EQ(model->getPixelIntConstantBCK(1, 2), -1.5);
  // A second time would move the zeros.
  set(*model, "rule Attraction disabled=1");
  EXPECT_EQ(model->getPixelIntConstantBCK(1, 2), -1.5);

  set(*model, "rule Attraction parameter=3");
  EXPECT_EQ(model->getPixelIntConstant(1, 2), 0.0);
  EXPECT_EQ(model->getPixelIntConstantBCK(1, 2), 3.0);
  set(*model, "rule Attraction disabled=0");
  EXPECT_EQ(model->getPixelIntConstant(2, 1), 3.0);
}

TEST(Setting, OfAnyOtherRuleWritesNoPairEnergy) {
  const auto model = namedModel();
  set(*model, "rule Walk parameter=0.9");
  for (int a = 0; a < 3; ++a)
    for (int b = 0; b < 3; ++b)
      EXPECT_EQ(model->getPixelIntConstant(a, b), (a == 1 && b == 2) || (a == 2 && b == 1) ? 0.5 : 0.0);
}

struct Wrong {
  const char* text;
  const char* error;
};

class WrongSettings : public testing::TestWithParam<Wrong> {};

TEST_P(WrongSettings, AreRefusedAndChangeNothing) {
  const auto model = namedModel();
  EXPECT_EQ(errorOf([&] { set(*model, GetParam().text); }), GetParam().error);
  EXPECT_EQ(model->getRuleParam(0), 0.0);
  EXPECT_EQ(model->getRuleParam(3), 0.5);
  EXPECT_EQ(model->getPixelIntConstant(1, 2), 0.5);
  EXPECT_EQ(model->getRuleFacNum(0), 0);
  EXPECT_EQ(model->getRuleDisabled(0), 0);
  EXPECT_EQ(model->getPixelField(0), 0.0);
  EXPECT_EQ(model->getPixelImmobile(0), 0);
}

constexpr const char* kForm = "needs \"rule NAME FIELD=VALUE\" or \"type NAME FIELD=VALUE\"";

INSTANTIATE_TEST_SUITE_P(
    All, WrongSettings,
    testing::Values(
        Wrong{"", kForm}, Wrong{"   ", kForm}, Wrong{"Growth parameter=1", kForm},
        Wrong{"rules Growth parameter=1", kForm}, Wrong{"rule", "needs FIELD=VALUE at its end"},
        Wrong{"rule Growth", "needs FIELD=VALUE at its end"},
        Wrong{"rule Growth parameter", "needs FIELD=VALUE at its end"},
        Wrong{"rule Growth parameter=", "needs FIELD=VALUE at its end"},
        Wrong{"rule parameter=1", "needs the name of a rule"},
        Wrong{"type  field=1", "needs the name of a type"},
        Wrong{"rule Growth field=1",
              "\"field\" is nothing that can be set of a rule; there are parameter, disabled, facilitation"},
        Wrong{"type Bare ground parameter=1",
              "\"parameter\" is nothing that can be set of a type; there are field, immobile"},
        Wrong{"rule Growht parameter=1",
              "no rule is called \"Growht\"; there are #0 \"Growth\", #1 \"Turn = back\", #2 \"Walk\", #3 "
              "\"Attraction\""},
        Wrong{"rule Growth parameter=1.5", "parameter: 1.5 is not from 0 to 1"},
        Wrong{"rule Growth parameter=-0.1", "parameter: -0.1 is not from 0 to 1"},
        Wrong{"rule Growth parameter=nan", "parameter: \"nan\" is not a number"},
        Wrong{"rule Attraction parameter=-10.5", "parameter: -10.5 is not from -10 to 10"},
        Wrong{"rule Growth disabled=2", "disabled: \"2\" is not a whole number from 0 to 1"},
        Wrong{"rule Growth disabled=yes", "disabled: \"yes\" is not a whole number from 0 to 1"},
        Wrong{"rule Growth facilitation=9", "facilitation: \"9\" is not a whole number from 0 to 8"},
        Wrong{"rule Growth facilitation=1.0", "facilitation: \"1.0\" is not a whole number from 0 to 8"},
        Wrong{"rule Walk facilitation=1", "facilitation: only a flip can be facilitated"},
        Wrong{"type Bare ground field=11", "field: 11 is not from -10 to 10"},
        Wrong{"type #0 immobile=-1", "immobile: \"-1\" is not a whole number from 0 to 1"}));

}  // namespace
}  // namespace quorvane
