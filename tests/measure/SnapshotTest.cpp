#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "MeasureSupport.h"
#include "measure/MeasureError.h"
#include "model/LatticeModel.h"

namespace quorvane {
namespace {

std::unique_ptr<LatticeModel> smallModel() {
  auto model = std::make_unique<LatticeModel>();
  model->awakeFromNib();
  model->initializeLatticeModel(3, 2, 4);
  for (int i = 0; i < 2; ++i)
    for (int j = 0; j < 4; ++j) model->setSiteValue(i, j, (2 * i + j) % 3);
  model->setPixelName(1, "oil");
  model->setPixelField(2, 0.5);
  model->setPixelIntConstant(0, 2, -1.5);
  model->setPixelIntConstant(8, 9, 4.0);
  model->setPixelIntConstantBCK(1, 1, 7.0);
  return model;
}

std::string faultOf(const Snapshot& snapshot) {
  try {
    requireValid(snapshot);
    return "none";
  } catch (const MeasureError& error) {
    return error.what();
  }
}

TEST(Snapshot, HasTheSitesNamesAndActiveEnergiesOfTheModel) {
  const Snapshot snapshot = snapshotOf(*smallModel());
  EXPECT_EQ(snapshot.imax, 2);
  EXPECT_EQ(snapshot.jmax, 4);
  EXPECT_EQ(snapshot.numTypes, 3);
  EXPECT_THAT(snapshot.sites, testing::ElementsAre(0, 1, 2, 0, 2, 0, 1, 2));
  EXPECT_THAT(snapshot.names, testing::ElementsAre("Pixel", "oil", "Pixel"));
  EXPECT_EQ(snapshot.fields[2], 0.5);
  EXPECT_EQ(snapshot.pairEnergies[0][2], -1.5);
  EXPECT_EQ(snapshot.pairEnergies[2][0], -1.5);
  EXPECT_EQ(snapshot.pairEnergies[8][9], 4.0);
  EXPECT_EQ(snapshot.pairEnergies[1][1], 0.0);
}

TEST(Snapshot, HasTypesThatAreNotInUseAsTheModelHasThem) {
  const auto model = smallModel();
  model->setSiteValue(1, 2, 9);
  const Snapshot snapshot = snapshotOf(*model);
  EXPECT_EQ(typeAt(snapshot, 1, 2), 9);
  EXPECT_EQ(faultOf(snapshot), "none");
}

TEST(Snapshot, OfSitesThatHoldNoTypeIsRefused) {
  for (const int value : {-1, 10, 255, 256, 1 << 30}) {
    const auto model = smallModel();
    model->setSiteValue(1, 2, value);
    EXPECT_THAT(faultOf(snapshotOf(*model)),
                testing::StartsWith("site (1, 2) of a lattice to measure holds "));
    EXPECT_THROW(Measurements("counts", snapshotOf(*model)), MeasureError);
  }
}

TEST(Snapshot, OutsideTheLimitsIsRefused) {
  const Snapshot good = emptyLattice(3, 5, 2);
  EXPECT_EQ(faultOf(good), "none");
  Snapshot bad = good;
  bad.imax = 0;
  EXPECT_EQ(faultOf(bad), "a lattice to measure has 0 sites across; 1 to 256 are possible");
  bad = good;
  bad.jmax = 257;
  EXPECT_EQ(faultOf(bad), "a lattice to measure has 257 sites upwards; 1 to 256 are possible");
  bad = good;
  bad.numTypes = 11;
  EXPECT_EQ(faultOf(bad), "a lattice to measure has 11 pixel types; 1 to 10 are possible");
  bad = good;
  bad.sites.pop_back();
  EXPECT_EQ(faultOf(bad), "a lattice to measure has 14 sites instead of 15");
  bad = good;
  bad.names.emplace_back("third");
  EXPECT_EQ(faultOf(bad), "a lattice to measure has 3 names for 2 pixel types");
}

// Without a lattice, as before the first Initialise.
TEST(Snapshot, OfAModelWithoutLatticeIsRefused) {
  const auto model = std::make_unique<LatticeModel>();
  model->awakeFromNib();
  EXPECT_THAT(faultOf(snapshotOf(*model)), testing::HasSubstr("has 0 sites across"));
}

}  // namespace
}  // namespace quorvane
