#include "model/CopySystem.h"

#include <tuple>
#include <type_traits>

namespace quorvane {
namespace {

/// All that a run reads, except the sites.
constexpr std::tuple kCopied{&ModelState::varMyState,
                             &ModelState::varNumSiteTypes,
                             &ModelState::varSiteName,
                             &ModelState::varSiteColor,
                             &ModelState::varSiteAlpha,
                             &ModelState::varHistoryPersistenceConst,
                             &ModelState::varPixelImmobile,
                             &ModelState::varSiteMasqueradeAs,
                             &ModelState::varSiteField,
                             &ModelState::varInteractionConstants,
                             &ModelState::varInteractionConstantsBCK,
                             &ModelState::varNumRules,
                             &ModelState::varRuleName,
                             &ModelState::varRuleType,
                             &ModelState::varRuleDisabled,
                             &ModelState::varRuleIgnoreEnergy,
                             &ModelState::varRuleEndPoints,
                             &ModelState::varRuleParameter,
                             &ModelState::varRuleFacNumAndType,
                             &ModelState::varAccessibleRulesForSiteID,
                             &ModelState::varAccessibleRulesForSiteIDCount,
                             &ModelState::varImax,
                             &ModelState::varJmax};

template <typename Value>
void assign(const Value& from, Value& to) {
  if constexpr (std::is_array_v<Value>)
    for (std::size_t k = 0; k < std::extent_v<Value>; ++k) assign(from[k], to[k]);
  else
    to = from;
}

}  // namespace

void copySystem(const ModelState& from, ModelState& to) {
  std::apply([&](auto... members) { (assign(from.*members, to.*members), ...); }, kCopied);
  for (int i = 0; i < from.varImax; ++i)
    for (int j = 0; j < from.varJmax; ++j) to.varSiteValues[i][j] = from.varSiteValues[i][j];
}

}  // namespace quorvane
