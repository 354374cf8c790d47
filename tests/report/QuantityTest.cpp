#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "Quantity.h"
#include "ValueText.h"
#include "measure/Registry.h"
#include "measure/Snapshot.h"

namespace quorvane {
namespace {

const std::vector<std::string> kTypes = {"Water", "Oil"};

TEST(Quantity, NamesPixelTypesAndUnits) {
  EXPECT_EQ(quantityOf("contacts_0_1_mean", kTypes).title, "Contacts of Water with Oil");
  EXPECT_EQ(quantityOf("contacts_0_1_mean", kTypes).label(), "Contacts (pairs of sites)");
  EXPECT_EQ(quantityOf("energy_mean", kTypes).label(), "Energy (kT)");
  EXPECT_EQ(quantityOf("energy_specific_heat", kTypes).title, "Specific heat");
  EXPECT_EQ(quantityOf("order_1_0_binder", kTypes).title, "Binder cumulant of the order, Oil minus Water");
  EXPECT_EQ(quantityOf("order_1_0_binder", kTypes).label(), "Binder cumulant");
  EXPECT_EQ(quantityOf("mean_1_mean", kTypes).title, "Mean cluster of Oil");
}

TEST(Quantity, AnUnknownColumnOrTypeKeepsItsName) {
  EXPECT_EQ(quantityOf("viscosity_mean", kTypes).title, "viscosity");
  EXPECT_EQ(quantityOf("count_7_mean", kTypes).title, "Number of sites of 7");
}

/// A new observable is told here.
TEST(Quantity, EveryColumnOfEveryObservableHasWords) {
  Snapshot snapshot;
  snapshot.imax = snapshot.jmax = 8;
  snapshot.numTypes = 2;
  snapshot.sites.assign(64, 0);
  snapshot.names = kTypes;
  for (const ObservableKind* kind : observableKinds()) {
    std::vector<int> types;
    for (std::size_t k = 0; k < kind->numArguments(); ++k) types.push_back(static_cast<int>(k));
    for (const std::string& column : kind->make(snapshot, types)->columns()) {
      const auto profile = profileColumn(column + "_mean");
      const Quantity quantity =
          profile ? profileQuantity(profile->function, kTypes) : quantityOf(column + "_mean", kTypes);
      EXPECT_NE(quantity.name, profile ? profile->function : column);
      if (profile) {
        EXPECT_NE(profileArgument(profile->function).name, profile->function);
      }
    }
  }
}

TEST(Quantity, ColumnsOfAFunctionAreTold) {
  const auto profile = profileColumn("s_1_12_mean");
  ASSERT_TRUE(profile);
  EXPECT_EQ(profile->function, "s_1");
  EXPECT_EQ(profile->argument, 12);
  EXPECT_EQ(profileQuantity("s_1", kTypes).title, "Structure factor of Oil");
  EXPECT_EQ(profileArgument("c_0").label(), "Distance (sites)");
  EXPECT_FALSE(profileColumn("length_1_mean"));
  EXPECT_FALSE(profileColumn("contacts_0_1_mean"));
}

TEST(ValueText, HasTwoDigitsOfTheError) {
  EXPECT_EQ(withError(0.610123, 0.000314), "0.61012 ± 0.00031");
  EXPECT_EQ(withError(2581.47, 5.24), "2581.5 ± 5.2");
  EXPECT_EQ(withError(2581.47, 524.0), "2581 ± 524");
  EXPECT_EQ(withError(-0.05, 0.1), "-0.05 ± 0.10");
  EXPECT_EQ(withError(9852.0, 0.0), "9852 ± 0");
  EXPECT_EQ(withError(0.1, std::nan("")), "0.1");
}

}  // namespace
}  // namespace quorvane
