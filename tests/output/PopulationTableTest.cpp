#include <gtest/gtest.h>

#include "DocumentSupport.h"
#include "output/PopulationTable.h"

namespace quorvane {
namespace {

std::unique_ptr<LatticeModel> twoByTwo() {
  auto model = freshModel();
  model->initializeLatticeModel(3, 2, 2);
  const int sites[2][2] = {{0, 2}, {2, 2}};
  for (int i = 0; i < 2; ++i)
    for (int j = 0; j < 2; ++j) model->setSiteValue(i, j, sites[i][j]);
  for (int t = 0; t < 3; ++t) model->setPixelName(t, std::string(1, static_cast<char>('a' + t)));
  return model;
}

TEST(PopulationTable, BeginsWithTheNamesOfTheTypes) {
  EXPECT_EQ(PopulationTable(*twoByTwo()).csv(), "sweep,\"a\",\"b\",\"c\"\n");
}

TEST(PopulationTable, CountsTheSitesOfEachType) {
  const auto model = twoByTwo();
  PopulationTable table(*model);
  table.addRow(*model, 0);
  model->setSiteValue(0, 0, 1);
  table.addRow(*model, 5'000'000'000);
  EXPECT_EQ(table.csv(), "sweep,\"a\",\"b\",\"c\"\n0,1,0,3\n5000000000,0,1,3\n");
}

TEST(PopulationTable, AddsARowOfGivenCounts) {
  const auto model = twoByTwo();
  PopulationTable table(*model);
  const SiteCounts counts = countSites(*model);
  EXPECT_EQ(counts, (SiteCounts{1, 0, 3}));
  model->setSiteValue(1, 1, 0);
  table.addRow(counts, 7);
  EXPECT_EQ(table.csv(), "sweep,\"a\",\"b\",\"c\"\n7,1,0,3\n");
}

TEST(PopulationTable, HoldsOnlyTheRowsSinceItWasCleared) {
  const auto model = twoByTwo();
  PopulationTable table(*model);
  table.addRow(*model, 0);
  EXPECT_EQ(table.csv(), "sweep,\"a\",\"b\",\"c\"\n0,1,0,3\n");
  table.clear();
  EXPECT_EQ(table.csv(), "");
  table.addRow(*model, 1);
  EXPECT_EQ(table.csv(), "1,1,0,3\n");
}

TEST(PopulationTable, QuotesNames) {
  const auto model = twoByTwo();
  model->setPixelName(0, "with \"quotes\", a comma");
  model->setPixelName(1, "");
  model->setPixelName(2, "two\nlines");
  EXPECT_EQ(PopulationTable(*model).csv(), "sweep,\"with \"\"quotes\"\", a comma\",\"\",\"two\nlines\"\n");
}

}  // namespace
}  // namespace quorvane
