#include "model/RuleRows.h"

#include <cassert>
#include <cstddef>

namespace quorvane {
namespace {

void addEntries(RowCounts& entries, int end, int numTypes) {
  assert(end >= kAnyPixelType && end < kMaxPixelTypes && numTypes <= kMaxPixelTypes);
  if (end != kAnyPixelType) {
    ++entries[static_cast<std::size_t>(end)];
    return;
  }
  for (int t = 0; t < numTypes; ++t) ++entries[static_cast<std::size_t>(t)];
}

}  // namespace

RowCounts rowEntries(int ruleType, int endA, int endB, int numTypes) {
  RowCounts entries{};
  const RuleKind* kind = ruleKind(ruleType);
  if (kind && kind->inRowOfA) addEntries(entries, endA, numTypes);
  if (kind && kind->inRowOfB) addEntries(entries, endB, numTypes);
  return entries;
}

}  // namespace quorvane
