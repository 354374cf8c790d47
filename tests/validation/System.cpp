#include "System.h"

namespace quorvane::validation {

void setPairEnergy(System& system, int a, int b, double energy) {
  system.J[a][b] = energy;
  system.J[b][a] = energy;
}

std::unique_ptr<LatticeModel> modelOf(const System& system) {
  auto model = std::make_unique<LatticeModel>();
  model->awakeFromNib();
  model->initializeLatticeModel(system.types, system.imax, system.jmax);
  for (const Rule& rule : system.rules) {
    const int r = model->getNumRules();
    model->makeNewRule("rule", rule.type, rule.endA, rule.endB);
    model->setRuleParam(r, rule.parameter);
    model->setRuleFacNum(r, rule.facilitators);
    model->setRuleFacPixel(r, rule.facilitatingType);
    model->setRuleIgnoreEnergy(r, rule.ignoresEnergy ? 1 : 0);
    model->setRuleDisabled(r, rule.disabled ? 1 : 0);
  }
  for (int a = 0; a < system.types; ++a) {
    model->setPixelField(a, system.field[a]);
    model->setPixelImmobile(a, system.immobile[a] ? 1 : 0);
    model->setPixelMasqueradeAs(a, system.masquerade[a]);
    // Not by the accessors, which write both orders of a pair: some systems here have different ones.
    for (int b = 0; b < system.types; ++b) model->varInteractionConstants[a][b] = system.J[a][b];
  }
  model->varMyState = kRunning;
  return model;
}

void fill(LatticeModel& model, int type) {
  for (int i = 0; i < model.getIMax(); ++i)
    for (int j = 0; j < model.getJMax(); ++j) model.setSiteValue(i, j, type);
}

int sitesOfType(const LatticeModel& model, int type) {
  const int imax = model.getIMax(), jmax = model.getJMax();
  int count = 0;
  for (int i = 0; i < imax; ++i)
    for (int j = 0; j < jmax; ++j) count += model.getSiteValue(i, j) == type ? 1 : 0;
  return count;
}

void attemptAt(LatticeModel& m, int i, int j) {
  fModelCycle(i, j, m.varImax, m.varJmax, m.varSiteValues, m.varNumSiteTypes, m.varNumRules, m.varRuleType,
              m.varRuleDisabled, m.varRuleIgnoreEnergy, m.varRuleEndPoints, m.varRuleParameter,
              m.varRuleFacNumAndType, m.varAccessibleRulesForSiteID, m.varAccessibleRulesForSiteIDCount,
              m.varPixelImmobile, m.varSiteField, m.varSiteMasqueradeAs, m.varInteractionConstants);
}

}  // namespace quorvane::validation
