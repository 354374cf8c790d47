#include "ActionTable.h"

#include <algorithm>

namespace quorvane {

void ActionTable::read(int numTypes, const RuleArrays& rules) {
  for (int type = 0; type < kMaxPixelTypes; ++type) {
    const int length = std::clamp<int>(rules.accessibleCount[type], 0, kMaxRules);
    length_[type] = static_cast<std::uint32_t>(length);
    for (int position = 0; position < length; ++position) {
      const int rule = rules.accessible[type][position];
      rows_[type][position] =
          usable(rule, rules.ruleDisabled) ? actionOf(rule, type, numTypes, rules) : Action{};
    }
  }
}

}  // namespace quorvane
