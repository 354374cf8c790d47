#include <gtest/gtest.h>

#include "model/RuleRows.h"

namespace quorvane {
namespace {

constexpr int kTypes = 3;

TEST(RuleRows, OfAnIrreversibleFlipAndOfASwapAreThoseOfEndA) {
  for (const int type : {kIrreversibleFlip, kSwap}) {
    EXPECT_EQ(rowEntries(type, 1, 2, kTypes), (RowCounts{0, 1})) << type;
    EXPECT_EQ(rowEntries(type, kAnyPixelType, 2, kTypes), (RowCounts{1, 1, 1})) << type;
  }
}

TEST(RuleRows, OfAReversibleFlipAreThoseOfBothEnds) {
  EXPECT_EQ(rowEntries(kReversibleFlip, 0, 2, kTypes), (RowCounts{1, 0, 1}));
  EXPECT_EQ(rowEntries(kReversibleFlip, kAnyPixelType, 2, kTypes), (RowCounts{1, 1, 2}));
  EXPECT_EQ(rowEntries(kReversibleFlip, 1, 1, kTypes), (RowCounts{0, 2}));
}

TEST(RuleRows, OfAnInteractionAndOfATypeThatIsNoKindAreNone) {
  for (const int type : {int{kPixelPixelInteraction}, -1, kNumRuleTypes, 99})
    EXPECT_EQ(rowEntries(type, kAnyPixelType, kAnyPixelType, kTypes), RowCounts{}) << type;
}

TEST(RuleRows, IncludeThatOfANamedTypeThatIsNotInUse) {
  EXPECT_EQ(rowEntries(kSwap, 9, 0, kTypes), (RowCounts{0, 0, 0, 0, 0, 0, 0, 0, 0, 1}));
}

}  // namespace
}  // namespace quorvane
