#include <gtest/gtest.h>

#include "TestModel.h"

namespace quorvane {
namespace {

TEST(History, WithoutPersistenceTheTraceIsExactlyWhereTheTypeIs) {
  auto model = makeModel(2, 6, 5);
  fillLattice(*model, 0);
  model->setSiteValue(2, 3, 1);
  model->updateHistory();
  for (int i = 0; i < 6; ++i)
    for (int j = 0; j < 5; ++j) {
      const bool one = i == 2 && j == 3;
      ASSERT_EQ(model->varMobileHistory[1][i][j], one ? 1.0 : 0.0);
      ASSERT_EQ(model->varMobileHistory[0][i][j], one ? 0.0 : 1.0);
    }
}

TEST(History, ATraceDecaysByThePersistenceBeforeItGainsOne) {
  auto model = makeModel(1, 1, 1);
  model->setPixelPersistence(0, 0.3);
  model->varMobileHistory[0][0][0] = 0.7;
  model->updateHistory();
  EXPECT_EQ(model->varMobileHistory[0][0][0], 1.0 + 0.7 * 0.3);
  EXPECT_EQ(model->varMobileHistoryMax[0], 1.0 + 0.7 * 0.3);
}

TEST(History, ASiteHeldForEverTendsToOneOverOneMinusPersistence) {
  auto model = makeModel(1, 2, 2);
  model->setPixelPersistence(0, 0.75);
  for (int k = 0; k < 200; ++k) model->updateHistory();
  EXPECT_NEAR(model->varMobileHistory[0][1][1], 4.0, 1e-12);
  EXPECT_EQ(model->varMobileHistoryMax[0], model->varMobileHistory[0][1][1]);
}

TEST(History, TheTraceOfALeftSiteFadesAndTheMaximumNeverFallsBelowOne) {
  auto model = makeModel(2, 2, 2);
  fillLattice(*model, 1);
  model->setPixelPersistence(1, 0.5);
  model->reinitHistory(1);
  fillLattice(*model, 0);
  model->updateHistory();
  EXPECT_EQ(model->varMobileHistory[1][0][0], 0.5);
  EXPECT_EQ(model->varMobileHistoryMax[1], 1.0);
  for (int k = 0; k < 2000; ++k) model->updateHistory();
  EXPECT_EQ(model->varMobileHistory[1][0][0], 0.0);
  EXPECT_EQ(model->varMobileHistoryMax[1], 1.0);
}

TEST(History, OnlyTheTypesInUseAndTheSitesInUseAreTouched) {
  auto model = makeModel(2, 3, 3);
  model->varMobileHistory[2][0][0] = 0.5;
  model->varMobileHistory[0][3][0] = 0.5;
  model->varMobileHistory[0][0][3] = 0.5;
  model->varMobileHistoryMax[2] = 9.0;
  model->updateHistory();
  EXPECT_EQ(model->varMobileHistory[2][0][0], 0.5);
  EXPECT_EQ(model->varMobileHistory[0][3][0], 0.5);
  EXPECT_EQ(model->varMobileHistory[0][0][3], 0.5);
  EXPECT_EQ(model->varMobileHistoryMax[2], 9.0);
}

TEST(History, EachTypeHasItsOwnPersistenceAndMaximum) {
  auto model = makeModel(2, 2, 1);
  model->setSiteValue(0, 0, 0);
  model->setSiteValue(1, 0, 1);
  model->reinitHistory(0);
  model->reinitHistory(1);
  model->setPixelPersistence(1, 0.9);
  model->updateHistory();
  EXPECT_EQ(model->varMobileHistoryMax[0], 1.0);
  EXPECT_EQ(model->varMobileHistoryMax[1], 1.9);
}

TEST(History, APaintedSiteShowsItsTypeAlone) {
  auto model = makeModel(3, 4, 4);
  fillLattice(*model, 0);
  for (int type = 0; type < 3; ++type) model->setPixelPersistence(type, 0.5);
  for (int sweep = 0; sweep < 3; ++sweep) model->updateHistory();
  ASSERT_GT(model->varMobileHistoryMax[0], 1.0);
  model->paintSiteAs(2, 1, 0);
  EXPECT_EQ(model->varMobileHistory[0][2][1], model->varMobileHistoryMax[0]);
  model->paintSiteAs(2, 1, 2);
  EXPECT_EQ(model->getSiteValue(2, 1), 2);
  EXPECT_EQ(model->varMobileHistory[0][2][1], 0.0);
  EXPECT_EQ(model->varMobileHistory[2][2][1], model->varMobileHistoryMax[2]);
  EXPECT_GT(model->varMobileHistory[0][1][1], 1.0) << "other sites stay";
}

}  // namespace
}  // namespace quorvane
