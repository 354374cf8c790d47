#include "StudyTestSupport.h"

namespace quorvane {
namespace {

using testing::ElementsAre;

TEST(Study, NumbersPointsWithTheLastAxisFastest) {
  const Study study = smallStudy();
  EXPECT_EQ(numPoints(study), 12);
  EXPECT_EQ(numRuns(study), 36);
  EXPECT_THAT(placesOf(study, 0), ElementsAre(0, 0, 0));
  EXPECT_THAT(placesOf(study, 1), ElementsAre(0, 0, 1));
  EXPECT_THAT(placesOf(study, 2), ElementsAre(0, 1, 0));
  EXPECT_THAT(placesOf(study, 6), ElementsAre(1, 0, 0));
  EXPECT_THAT(placesOf(study, 11), ElementsAre(1, 2, 1));
}

TEST(Study, ARunHasTheSettingsOfItsPointAndASeedOfItsOwn) {
  const Start start = startOf(smallStudy(), 2 * 12 + 9);
  EXPECT_EQ(start.seed, 11 + 33);
  EXPECT_EQ(start.remake, (LatticeSides{12, 6}));
  ASSERT_EQ(start.settings.size(), 2u);
  EXPECT_EQ(start.settings[0], (Setting{Setting::kRule, "Unlike spins repel", "parameter", "0.76"}));
  EXPECT_EQ(start.settings[1], (Setting{Setting::kType, "Spin up", "field", "0.05"}));
  EXPECT_EQ(start.fill.size(), 2u);
}

TEST(Study, ColumnsTellPointsApart) {
  EXPECT_THAT(settingNames(smallStudy()),
              ElementsAre("imax", "jmax", "rule Unlike spins repel parameter", "type Spin up field"));
  EXPECT_THAT(settingValues(smallStudy(), 9), ElementsAre("12", "6", "0.76", "0.05"));
}

TEST(Study, MeasuresAtTheMultiplesFromDiscardOn) {
  Study study = smallStudy();
  EXPECT_EQ(numMeasurements(study), 7) << "10, 15, ..., 40";
  study.discard = 11;
  EXPECT_EQ(numMeasurements(study), 6);
  study.discard = 40;
  EXPECT_EQ(numMeasurements(study), 1);
  study.discard = 0;
  EXPECT_EQ(numMeasurements(study), 9);
}

TEST(Study, EveryFieldButTheReplicasIsPartOfItsIdentity) {
  const Study study = smallStudy();
  const std::string identity = identityOf(study);
  const auto differs = [&](const std::function<void(Study&)>& change) {
    Study other = study;
    change(other);
    return identityOf(other) != identity;
  };
  EXPECT_FALSE(differs([](Study& other) { other.replicas = 7; }));
  EXPECT_FALSE(differs([](Study& other) { other.document = "renamed"; })) << "its content decides";
  EXPECT_TRUE(differs([](Study& other) { other.sweeps = 45; }));
  EXPECT_TRUE(differs([](Study& other) { other.discard = 5; }));
  EXPECT_TRUE(differs([](Study& other) { other.every = 10; }));
  EXPECT_TRUE(differs([](Study& other) { other.seed = 12; }));
  EXPECT_TRUE(differs([](Study& other) { other.observables = "energy"; }));
  EXPECT_TRUE(differs([](Study& other) { other.series.clear(); }));
  EXPECT_TRUE(differs([](Study& other) { other.sides.pop_back(); }));
  EXPECT_TRUE(differs([](Study& other) { other.fill[0].type = "#1"; }));
  EXPECT_TRUE(differs([](Study& other) { std::swap(other.fill[0], other.fill[1]); }));
  EXPECT_TRUE(differs([](Study& other) { other.axes[0].values[1] = "0.77"; }));
  EXPECT_TRUE(differs([](Study& other) { other.axes[1].of = Setting::kRule; }));
  EXPECT_TRUE(differs([](Study& other) { other.axes[1].field = "immobile"; }));
}

}  // namespace
}  // namespace quorvane
