#include <array>

#include "SettingsTest.h"
#include "engine/f_ran0.h"
#include "settings/Fill.h"

namespace quorvane {
namespace {

TEST(Fill, GivesEverySiteTheTypeThatItsDrawSelects) {
  const auto model = namedModel();
  processRandomSource.startAnew(7);
  fill(*model, sharesIn("#2=0.25,Bare ground=0.5,#1=0.25"));
  RandomSource expected;
  expected.startAnew(7);
  for (int i = 0; i < 12; ++i)
    for (int j = 0; j < 9; ++j) {
      const double u = expected.next() / RandomSource::maxran;
      ASSERT_EQ(model->getSiteValue(i, j), u < 0.25 ? 2 : u < 0.75 ? 0 : 1);
    }
  EXPECT_EQ(processRandomSource.next(), expected.next()) << "one draw for each site";
}

TEST(Fill, ResetsTheTraces) {
  const auto model = namedModel();
  model->varMobileHistory[1][3][4] = 0.3;
  fill(*model, sharesIn("#1=1"));
  for (int type = 0; type < 3; ++type) EXPECT_EQ(model->varMobileHistory[type][3][4], type == 1 ? 1.0 : 0.0);
}

TEST(Fill, WithAShareOfZeroNeverGivesThatType) {
  const auto model = namedModel();
  fill(*model, sharesIn("#0=0,#1=1,#2=0"));
  for (int i = 0; i < 12; ++i)
    for (int j = 0; j < 9; ++j) ASSERT_EQ(model->getSiteValue(i, j), 1);
}

TEST(Fill, ReachesTheSharesOnALargeLattice) {
  const auto model = namedModel();
  model->initializeLatticeModel(-1, 256, 256);
  fill(*model, sharesIn("#0=0.1,#1=0.3,#2=0.6"));
  std::array<int, 3> counts = {};
  for (int i = 0; i < 256; ++i)
    for (int j = 0; j < 256; ++j) ++counts[static_cast<std::size_t>(model->getSiteValue(i, j))];
  // Six standard deviations are at most 770 sites.
  EXPECT_NEAR(counts[0], 6554, 770);
  EXPECT_NEAR(counts[1], 19661, 770);
  EXPECT_NEAR(counts[2], 39322, 770);
}

TEST(Fill, TakesSharesThatAddUpToOneUpToRounding) {
  EXPECT_EQ(sharesIn("a=0.1,b=0.2,c=0.3,d=0.4").size(), 4u);
  EXPECT_EQ(sharesIn("a=0.3333333333,b=0.3333333333,c=0.3333333334").size(), 3u);
  const auto shares = sharesIn("a=b=1");
  EXPECT_EQ(shares[0].type, "a=b");
}

TEST(Fill, RefusesSharesThatMakeNoSense) {
  for (const char* text : {"", "a", "=1", "a=", "a=x", "a=0.5,b", "a=1,", ",a=1", "a=-0.5,b=1.5", "a=1.5",
                           "a=nan", "a=0.5,b=0.4", "a=0.5,b=0.500000002", "a=0"})
    EXPECT_NE(errorOf([&] { sharesIn(text); }), "") << text;
  EXPECT_EQ(errorOf([&] { sharesIn("a=0.5,b=0.4"); }), "the shares add up to 0.9, not to 1");
  EXPECT_EQ(errorOf([&] { sharesIn("a=0.5,b"); }), "\"b\" is not NAME=SHARE");
}

TEST(Fill, RefusesTypesThatMakeNoSenseAndChangesNothing) {
  const auto model = namedModel();
  model->setSiteValue(0, 0, 2);
  processRandomSource.startAnew(7);
  EXPECT_THAT(errorOf([&] { fill(*model, sharesIn("Bush=1")); }), testing::StartsWith("no pixel type"));
  EXPECT_THAT(errorOf([&] { fill(*model, sharesIn("Tree=1")); }), testing::StartsWith("several pixel types"));
  EXPECT_EQ(errorOf([&] { fill(*model, sharesIn("#0=0.5,Bare ground=0.5")); }),
            "two shares are of the pixel type \"Bare ground\"");
  EXPECT_EQ(model->getSiteValue(0, 0), 2);
  RandomSource expected;
  expected.startAnew(7);
  EXPECT_EQ(processRandomSource.next(), expected.next()) << "nothing was drawn";
}

}  // namespace
}  // namespace quorvane
