#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "Table.h"
#include "study/StudyError.h"

namespace quorvane {
namespace {

using testing::ElementsAre;

TEST(Table, HasNamesAndRows) {
  const Table table = tableIn("a,b\n1,2\n3,4\n", "t.csv");
  EXPECT_THAT(table.names, ElementsAre("a", "b"));
  ASSERT_EQ(table.rows.size(), 2u);
  EXPECT_THAT(table.rows[1], ElementsAre("3", "4"));
  EXPECT_EQ(table.column("b"), 1u);
}

TEST(Table, CellsMayBeQuotedOrEmpty) {
  const std::string text = "\"a,b\",\"say \"\"no\"\"\",c\n\"two\nlines\",,\n";
  const Table table = tableIn(text, "t.csv");
  EXPECT_THAT(table.names, ElementsAre("a,b", "say \"no\"", "c"));
  EXPECT_THAT(table.rows[0], ElementsAre("two\nlines", "", ""));
  EXPECT_EQ(csvOf(table), text);
}

TEST(Table, RowsOfAnotherLengthAreRefused) {
  try {
    tableIn("a,b\n1,2\n3\n", "t.csv");
    FAIL() << "was read";
  } catch (const StudyError& error) {
    EXPECT_STREQ(error.what(), "\"t.csv\": row 2 has 1 cells and the first line has 2");
  }
}

TEST(Table, GivesSomeOfItsColumnsInAnyOrder) {
  EXPECT_EQ(csvOf(columnsOf(tableIn("a,b,c\n1,2,3\n", "t.csv"), {2, 0})), "c,a\n3,1\n");
}

TEST(Table, ACellThatIsNoNumberIsNan) {
  EXPECT_EQ(numberIn("-0.25"), -0.25);
  EXPECT_EQ(numberIn("1e-300"), 1e-300);
  for (const char* cell : {"", "x", "1x", "1 ", "64 × 48"}) EXPECT_TRUE(std::isnan(numberIn(cell))) << cell;
}

}  // namespace
}  // namespace quorvane
