#include <cassert>
#include <utility>

#include "Indices.h"
#include "model/LatticeModel.h"
#include "model/RuleRows.h"

namespace quorvane {
namespace {

/// Calls visit(type) as often as the rule has entries in the type's row.
template <class Visit>
void forEachEntry(const RowCounts& entries, Visit&& visit) {
  for (int t = 0; t < kMaxPixelTypes; ++t)
    for (int k = 0; k < entries[static_cast<std::size_t>(t)]; ++k) visit(t);
}

}  // namespace

bool LatticeModel::canMakeNewRule(int type, int endA, int endB) const {
  if (varNumRules >= kMaxRules) return false;
  const RowCounts entries = rowEntries(type, endA, endB, varNumSiteTypes);
  for (int t = 0; t < kMaxPixelTypes; ++t)
    if (varAccessibleRulesForSiteIDCount[t] + entries[static_cast<std::size_t>(t)] > kMaxRules) return false;
  return true;
}

void LatticeModel::makeNewRule(SharedName name, int type, int endA, int endB) {
  if (!canMakeNewRule(type, endA, endB)) return;
  const int r = varNumRules;
  varRuleName[r] = std::move(name);
  varRuleType[r] = type;
  varRuleEndPoints[r][0] = endA;
  varRuleEndPoints[r][1] = endB;
  varRuleParameter[r] = 0.0;
  varRuleFacNumAndType[r][0] = 0;
  varRuleFacNumAndType[r][1] = 0;
  varRuleDisabled[r] = 0;
  varRuleIgnoreEnergy[r] = 0;
  varNumRules = r + 1;
  // A rule with two entries in a row is drawn twice as often there.
  forEachEntry(rowEntries(type, endA, endB, varNumSiteTypes), [&](int t) { appendToRow(t, r); });
}

void LatticeModel::appendToRow(int type, int rule) {
  const int count = varAccessibleRulesForSiteIDCount[typeIndex(type)];
  assert(count >= 0 && count < kMaxRules);
  varAccessibleRulesForSiteID[type][count] = rule;
  varAccessibleRulesForSiteIDCount[type] = count + 1;
}

void LatticeModel::delRule(int r) {
  assert(r >= 0 && r < varNumRules);
  const int type = varRuleType[r];
  const int endA = varRuleEndPoints[r][0];
  const int endB = varRuleEndPoints[r][1];
  const int last = varNumRules - 1;

  for (int k = r + 1; k <= last; ++k) copyRuleDown(k);
  clearRule(last);
  varNumRules = last;

  const RuleKind* kind = ruleKind(type);
  if (!kind) return;
  if (kind->setsPairEnergy()) return clearInteraction(endA, endB);
  forEachEntry(rowEntries(type, endA, endB, varNumSiteTypes), [&](int t) { delRuleFromSiteList(r, t); });
  shiftRuleIDsInSiteLists(r);
}

void LatticeModel::copyRuleDown(int from) {
  const int to = from - 1;
  varRuleName[to] = varRuleName[from];
  varRuleType[to] = varRuleType[from];
  varRuleEndPoints[to][0] = varRuleEndPoints[from][0];
  varRuleEndPoints[to][1] = varRuleEndPoints[from][1];
  varRuleParameter[to] = varRuleParameter[from];
  varRuleFacNumAndType[to][0] = varRuleFacNumAndType[from][0];
  varRuleFacNumAndType[to][1] = varRuleFacNumAndType[from][1];
  // The flags belong to the index, not to the rule, and are not moved.
}

void LatticeModel::clearRule(int r) {
  varRuleName[r] = "";
  varRuleType[r] = -1;
  varRuleEndPoints[r][0] = kAnyPixelType;
  varRuleEndPoints[r][1] = kAnyPixelType;
  varRuleParameter[r] = 0.0;
  varRuleFacNumAndType[r][0] = 0;
  varRuleFacNumAndType[r][1] = 0;
}

void LatticeModel::delRuleFromSiteList(int r, int type) {
  auto& row = varAccessibleRulesForSiteID[typeIndex(type)];
  const int count = varAccessibleRulesForSiteIDCount[type];
  assert(count >= 0 && count <= kMaxRules);
  int position = 0;
  while (position < count && row[position] != r) ++position;
  if (position >= count) return;
  for (; position < count - 1; ++position) row[position] = row[position + 1];
  row[count - 1] = -1;
  varAccessibleRulesForSiteIDCount[type] = count - 1;
}

void LatticeModel::shiftRuleIDsInSiteLists(int r) {
  for (int t = 0; t < varNumSiteTypes; ++t) {
    auto& row = varAccessibleRulesForSiteID[t];
    for (int position = 0; position < varAccessibleRulesForSiteIDCount[t]; ++position) {
      if (row[position] <= r) continue;
      row[position] = row[position] - 1;
      break;
    }
  }
}

}  // namespace quorvane
