#include <utility>

#include "model/LatticeModel.h"

namespace quorvane {
namespace {

bool standsInRowOfEndA(int ruleType) {
  return ruleType == kIrreversibleFlip || ruleType == kReversibleFlip || ruleType == kSwap;
}

bool standsInRowOfEndB(int ruleType) { return ruleType == kReversibleFlip; }

/// An end that names one type is looked after also where that type is not in use yet.
int firstTypeOf(int end) { return end == kAnyPixelType ? 0 : end; }
int lastTypeOf(int end, int numTypes) { return end == kAnyPixelType ? numTypes - 1 : end; }

}  // namespace

bool LatticeModel::canMakeNewRule(int type, int endA, int endB) const {
  if (varNumRules >= kMaxRules) return false;
  int entries[kMaxPixelTypes] = {};
  const auto countRowsOf = [&](int end) {
    for (int t = firstTypeOf(end); t <= lastTypeOf(end, varNumSiteTypes); ++t) ++entries[t];
  };
  if (standsInRowOfEndA(type)) countRowsOf(endA);
  if (standsInRowOfEndB(type)) countRowsOf(endB);
  for (int t = 0; t < kMaxPixelTypes; ++t)
    if (varAccessibleRulesForSiteIDCount[t] + entries[t] > kMaxRules) return false;
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
  // Each end on its own: a reversible flip between overlapping ends stands in a row twice, and is therefore
  // drawn twice as often there.
  if (standsInRowOfEndA(type)) enterRows(r, endA);
  if (standsInRowOfEndB(type)) enterRows(r, endB);
}

void LatticeModel::enterRows(int rule, int end) {
  for (int t = firstTypeOf(end); t <= lastTypeOf(end, varNumSiteTypes); ++t) appendToRow(t, rule);
}

void LatticeModel::appendToRow(int type, int rule) {
  const int count = varAccessibleRulesForSiteIDCount[type];
  varAccessibleRulesForSiteID[type][count] = rule;
  varAccessibleRulesForSiteIDCount[type] = count + 1;
}

void LatticeModel::delRule(int r) {
  const int type = varRuleType[r];
  const int endA = varRuleEndPoints[r][0];
  const int endB = varRuleEndPoints[r][1];
  const int last = varNumRules - 1;

  for (int k = r + 1; k <= last; ++k) copyRuleDown(k);
  clearRule(last);
  varNumRules = last;

  if (standsInRowOfEndA(type)) {
    leaveRows(r, endA);
    if (standsInRowOfEndB(type)) leaveRows(r, endB);
    shiftRuleIDsInSiteLists(r);
  } else if (type == kPixelPixelInteraction) {
    clearInteraction(endA, endB);
  }
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
  // The two flags belong to the index, not to the rule, and stay where they are.
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

void LatticeModel::leaveRows(int rule, int end) {
  for (int t = firstTypeOf(end); t <= lastTypeOf(end, varNumSiteTypes); ++t) delRuleFromSiteList(rule, t);
}

void LatticeModel::delRuleFromSiteList(int r, int type) {
  auto& row = varAccessibleRulesForSiteID[type];
  const int count = varAccessibleRulesForSiteIDCount[type];
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
