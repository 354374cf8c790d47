#include "DocumentFields.h"

namespace quorvane {

PixelTypeBlock pixelTypeBlock(const LatticeModel& model, int t) {
  return {.numLines = PixelTypeBlock::kLines,
          .name = model.getPixelName(t),
          .immobile = model.getPixelImmobile(t),
          .masquerade = model.getPixelMasqueradeAs(t),
          .red = model.getPixelColorR(t),
          .green = model.getPixelColorG(t),
          .blue = model.getPixelColorB(t),
          .persistence = model.getPixelPersistence(t),
          .alpha = model.getPixelAlpha(t),
          .field = model.getPixelField(t)};
}

RuleBlock ruleBlock(const LatticeModel& model, int r) {
  return {.name = model.getRuleName(r),
          .disabled = model.getRuleDisabled(r),
          .ignoreEnergy = model.getRuleIgnoreEnergy(r),
          .type = model.getRuleType(r),
          .endA = model.getRulePixelA(r),
          .endB = model.getRulePixelB(r),
          .param = model.getRuleParam(r),
          .facNum = model.getRuleFacNum(r),
          .facPixel = model.getRuleFacPixel(r)};
}

void applyPixelType(LatticeModel& model, int t, const PixelTypeBlock& block) {
  using Block = PixelTypeBlock;
  const auto has = [&block](auto member) { return block.numLines >= lineOf(kPixelTypeFields, member); };
  if (has(&Block::name)) model.setPixelName(t, block.name);
  if (has(&Block::immobile)) model.setPixelImmobile(t, block.immobile);
  if (has(&Block::masquerade)) model.setPixelMasqueradeAs(t, block.masquerade);
  if (has(&Block::blue)) model.setPixelColor(t, block.red, block.green, block.blue);
  if (has(&Block::persistence)) model.setPixelPersistence(t, block.persistence);
  if (has(&Block::alpha)) model.setPixelAlpha(t, block.alpha);
  if (has(&Block::field)) model.setPixelField(t, block.field);
}

void applyRule(LatticeModel& model, int r, const RuleBlock& rule) {
  model.makeNewRule(rule.name, rule.type, rule.endA, rule.endB);
  // The disabled flag decides which table the pair energies are written to.
  model.setRuleDisabled(r, rule.disabled);
  model.setRuleIgnoreEnergy(r, rule.ignoreEnergy);
  model.setRuleParam(r, rule.param);
  model.setRuleFacNum(r, rule.facNum);
  model.setRuleFacPixel(r, rule.facPixel);
  if (setsPairEnergy(rule.type)) model.setInteractionParams(r, rule.param);
}

}  // namespace quorvane
