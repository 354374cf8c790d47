#include "ActionTable.h"

namespace quorvane {

void ActionTable::read(int numTypes, const RuleArrays& rules) {
  for (int type = 0; type < kMaxPixelTypes; ++type) {
    length_[type] = rowLength(rules.accessibleCount[type]);
    for (std::uint32_t position = 0; position < length_[type]; ++position) {
      const int rule = rules.accessible[type][position];
      rows_[type][position] =
          usable(rule, rules.ruleDisabled) ? actionOf(rule, type, numTypes, rules) : Action{};
    }
  }
}

}  // namespace quorvane
