#include "RulePanel.h"

#include "EndPointList.h"
#include "ListItems.h"
#include "ui_MainWindow.h"

namespace quorvane {

void RulePanel::show(int rule) {
  ui_.buttonZeroParam->setEnabled(true);
  ui_.textSelectedRuleName->setEnabled(true);
  ui_.textSelectedRuleName->showName(rule, model_.getRuleName(rule));
  showType(rule);
  showFlags(rule);
  showEndPoints(rule);
  ui_.sliderSelectedRuleParam->setEnabled(true);
  showParam(model_.getRuleParam(rule));
  selectValue(*ui_.listSelectedRuleFacNum, model_.getRuleFacNum(rule));
  showFacPixel(rule);
}

void RulePanel::showType(int rule) {
  const RuleKind* kind = ruleKind(model_.getRuleType(rule));
  if (!kind) return;
  ui_.textSelectedRuleType->setText(kind->label);
  setParamRange(kind->minParameter, kind->maxParameter);
  ui_.checkSelectedRuleIgnoreEnergy->setVisible(!kind->setsPairEnergy());
  showFacNumControls(kind->flips());
  showFacPixelControls(kind->flips() && model_.getRuleFacNum(rule) >= 1);
}

void RulePanel::showFlags(int rule) {
  // Ignore energy is enabled even while it is hidden for an interaction.
  ui_.checkSelectedRuleIgnoreEnergy->setEnabled(true);
  ui_.checkSelectedRuleIgnoreEnergy->setChecked(model_.getRuleIgnoreEnergy(rule) != 0);
  ui_.checkSelectedRuleDisabled->setEnabled(true);
  ui_.checkSelectedRuleDisabled->setChecked(model_.getRuleDisabled(rule) != 0);
}

void RulePanel::showEndPoints(int rule) {
  const int endA = model_.getRulePixelA(rule), endB = model_.getRulePixelB(rule);
  ui_.textSelectedRulePixelA->setText(endPointTitle(model_, endA));
  showEndPointColor(*ui_.colorSelectedRulePixelA, model_, endA);
  ui_.textSelectedRulePixelB->setText(endPointTitle(model_, endB));
  showEndPointColor(*ui_.colorSelectedRulePixelB, model_, endB);
}

void RulePanel::showNoRule() {
  ui_.textSelectedRuleName->clearName();
  ui_.textSelectedRuleName->setEnabled(false);
  ui_.textSelectedRuleType->setText({});
  setParamRange(0.0, 1.0);
  showFacNumControls(false);
  showFacPixelControls(false);
  ui_.buttonZeroParam->setEnabled(false);
  for (QCheckBox* check : {ui_.checkSelectedRuleDisabled, ui_.checkSelectedRuleIgnoreEnergy}) {
    check->setEnabled(false);
    check->setChecked(false);
  }
  ui_.textSelectedRulePixelA->setText({});
  ui_.colorSelectedRulePixelA->setVisible(false);
  ui_.textSelectedRulePixelB->setText({});
  ui_.colorSelectedRulePixelB->setVisible(false);
  showParam(0.0);
  ui_.sliderSelectedRuleParam->setEnabled(false);
}

void RulePanel::showFacPixel(int rule) {
  const int type = model_.getRuleFacPixel(rule);
  selectValue(*ui_.listSelectedRuleFacPixel, type);
  // In a document the facilitating type of a rule may be -1.
  if (type == kAnyPixelType)
    ui_.colorSelectedRuleFacPixel->clear();
  else
    ui_.colorSelectedRuleFacPixel->setRgb(pixelColor(model_, type));
}

void RulePanel::showFacNumControls(bool shown) {
  ui_.listSelectedRuleFacNum->setVisible(shown);
  ui_.labelSelectedRuleFacNum->setVisible(shown);
}

void RulePanel::showFacPixelControls(bool shown) {
  ui_.listSelectedRuleFacPixel->setVisible(shown);
  ui_.labelSelectedRuleFacPixel->setVisible(shown);
  ui_.colorSelectedRuleFacPixel->setVisible(shown);
}

void RulePanel::setParamRange(double minimum, double maximum) {
  ui_.sliderSelectedRuleParam->setMaximumValue(maximum);
  ui_.sliderSelectedRuleParam->setMinimumValue(minimum);
}

void RulePanel::showParam(double parameter) {
  ui_.sliderSelectedRuleParam->setValue(parameter);
  ui_.textSelectedRuleParam->setText(threeDecimals(parameter));
}

}  // namespace quorvane
