#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "MeasureSupport.h"
#include "measure/Registry.h"

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::string> names() {
  std::vector<std::string> all;
  for (const ObservableKind* kind : observableKinds()) all.emplace_back(kind->name);
  return all;
}

std::string listOf(const ObservableKind& kind) {
  std::string list(kind.name);
  for (std::size_t k = 0; k < kind.numArguments(); ++k) list += ":" + std::to_string(k);
  return list;
}

TEST(Registry, HasTheObservablesInTheOrderOfTheHelp) {
  EXPECT_THAT(names(), ElementsAre("counts", "energy", "contacts", "clusters", "order", "kept", "correlation",
                                   "structure"));
}

TEST(Registry, DescribesEachObservable) {
  for (const ObservableKind* kind : observableKinds()) {
    EXPECT_FALSE(kind->columns.empty()) << kind->name;
    EXPECT_FALSE(kind->cost.empty()) << kind->name;
    EXPECT_EQ(kind->definition.back(), '.') << kind->name;
    EXPECT_TRUE(kind->paper.empty() || kind->paper.back() == '.') << kind->name;
  }
}

// On lattices of every size and number of types, also where a type holds no site or one that is not in use.
TEST(Registry, HasAsManyColumnsAsValuesEachWithItsOwnName) {
  for (const ObservableKind* kind : observableKinds())
    for (Snapshot lattice : randomLattices()) {
      if (static_cast<std::size_t>(lattice.numTypes) < kind->numArguments()) continue;
      lattice.sites[0] = kMaxPixelTypes - 1;
      Measurements measurements(listOf(*kind), lattice);
      const auto& columns = measurements.columns();
      EXPECT_EQ(measurements.measure(lattice).values().size(), columns.size())
          << kind->name << ", " << describe(lattice);
      EXPECT_EQ(std::set<std::string>(columns.begin(), columns.end()).size(), columns.size()) << kind->name;
      for (const auto& column : columns)
        EXPECT_EQ(column.find_first_of(",\" \n"), std::string::npos) << column;
    }
}

TEST(Registry, GivesTheSameRowForTheSameLattice) {
  for (const ObservableKind* kind : observableKinds()) {
    const Snapshot lattice = randomLattice(33, 17, 3, 2), other = randomLattice(33, 17, 3, 3);
    Measurements measurements(listOf(*kind), lattice);
    const std::string first = measurements.csvRow(0, lattice);
    EXPECT_EQ(measurements.csvRow(0, lattice), first) << kind->name;
    measurements.measure(other);
    EXPECT_EQ(measurements.csvRow(0, lattice) == first, kind->name != "kept") << kind->name;
  }
}

TEST(ObservablesHelp, HasAllThatTheRegistryHasInNarrowLines) {
  const std::string help = observablesHelp();
  // The words alone: the lines are broken between them.
  std::istringstream stream(help);
  std::string words, word;
  while (stream >> word) words += word + ' ';
  for (const ObservableKind* kind : observableKinds()) {
    EXPECT_THAT(
        help, HasSubstr("\n" + std::string(kind->name) + std::string(kind->arguments) + "\n    columns   "));
    for (const auto text : {kind->columns, kind->definition, kind->paper, kind->cost})
      EXPECT_THAT(words, HasSubstr(std::string(text)));
  }
  EXPECT_EQ(help.back(), '\n');
  std::istringstream lines(help);
  for (std::string line; std::getline(lines, line);) {
    EXPECT_LE(line.size(), 80U) << line;
    EXPECT_TRUE(line.empty() || line.back() != ' ') << line;
  }
}

}  // namespace
}  // namespace quorvane
