#include "reference/ToModel.h"

#include "reference/Assign.h"

namespace quorvane::reference {

std::unique_ptr<LatticeModel> toModel(const System& system) {
  auto model = std::make_unique<LatticeModel>();
  model->awakeFromNib();
  model->varImax = system.imax;
  model->varJmax = system.jmax;
  model->varNumSiteTypes = system.numTypes;
  model->varNumRules = system.numRules;
  assign(model->varSiteValues, system.lattice);
  assign(model->varRuleType, system.ruleType);
  assign(model->varRuleDisabled, system.ruleDisabled);
  assign(model->varRuleIgnoreEnergy, system.ruleIgnoreEnergy);
  assign(model->varRuleEndPoints, system.ruleEndPoints);
  assign(model->varRuleParameter, system.ruleParameter);
  assign(model->varRuleFacNumAndType, system.ruleFac);
  assign(model->varAccessibleRulesForSiteID, system.accessible);
  assign(model->varAccessibleRulesForSiteIDCount, system.accessibleCount);
  assign(model->varPixelImmobile, system.immobile);
  assign(model->varSiteField, system.field);
  assign(model->varSiteMasqueradeAs, system.masquerade);
  assign(model->varInteractionConstants, system.J);
  model->varMyState = kRunning;
  return model;
}

}  // namespace quorvane::reference
