#include "ActionTable.h"

#include <utility>

namespace quorvane {

bool ActionTable::read(int numTypes, const RuleArrays& rules) {
  bool changed = false;
  for (int type = 0; type < kMaxPixelTypes; ++type) {
    const std::uint32_t length = rowLength(rules.accessibleCount[type]);
    changed |= std::exchange(length_[type], length) != length;
    for (std::uint32_t position = 0; position < length; ++position) {
      const int rule = rules.accessible[type][position];
      const Action action =
          usable(rule, rules.ruleDisabled) ? actionOf(rule, type, numTypes, rules) : Action{};
      changed |= std::exchange(rows_[type][position], action) != action;
    }
  }
  return changed;
}

}  // namespace quorvane
