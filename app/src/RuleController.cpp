#include "app/RuleController.h"

#include "ConnectButton.h"
#include "EndPointList.h"
#include "ListItems.h"
#include "RulePanel.h"
#include "TypedNames.h"
#include "ui_MainWindow.h"

namespace quorvane {

RuleController::RuleController(Ui::MainWindow& ui)
    : ui_(ui), model_(*ui.myGraphicalLatticeModel), panel_(std::make_unique<RulePanel>(ui, model_)) {
  connectControls();
}

RuleController::~RuleController() = default;

void RuleController::connectControls() {
  using Self = RuleController;
  connect(ui_.listSelectedRule, &QComboBox::activated, this, &Self::listSelectedRuleChanged);
  connect(ui_.textSelectedRuleName, &NameField::nameEdited, this, &Self::textRuleNameChanged);
  connect(ui_.listSelectedRuleFacNum, &QComboBox::activated, this, &Self::listSelectedRuleFacNumChanged);
  connect(ui_.listSelectedRuleFacPixel, &QComboBox::activated, this, &Self::listSelectedRuleFacPixelChanged);
  connect(ui_.listNewRulePixelA, &QComboBox::activated, this, &Self::listNewRulePixelAChanged);
  connect(ui_.listNewRulePixelB, &QComboBox::activated, this, &Self::listNewRulePixelBChanged);
  connectButton(ui_.buttonAddNewRule, this, &Self::buttonAddNewRuleClicked);
  connectButton(ui_.buttonDelRule, this, &Self::buttonDelRuleClicked);
  connect(ui_.sliderSelectedRuleParam, &DoubleSlider::moved, this, &Self::sliderSelectedRuleParamChanged);
  connectButton(ui_.buttonZeroParam, this, &Self::buttonZeroParamClicked);
  connect(ui_.checkSelectedRuleDisabled, &QCheckBox::clicked, this, &Self::checkSelectedRuleDisabledChanged);
  connect(ui_.checkSelectedRuleIgnoreEnergy, &QCheckBox::clicked, this,
          &Self::checkSelectedRuleIgnoreEnergyChanged);
}

void RuleController::showNoSystem() {
  noSelectedRule();
  refreshNewRulePixelA();
  refreshNewRulePixelB();
}

void RuleController::selectFirstItems() {
  for (QComboBox* list :
       {ui_.listSelectedRule, ui_.listSelectedRuleFacPixel, ui_.listNewRulePixelA, ui_.listNewRulePixelB})
    list->setCurrentIndex(0);
}

void RuleController::enableControls() {
  for (QWidget* control :
       std::initializer_list<QWidget*>{ui_.buttonAddNewRule, ui_.listNewRulePixelA, ui_.listNewRulePixelB})
    control->setEnabled(true);
}

int RuleController::selectedRule() const { return ui_.listSelectedRule->currentIndex(); }

void RuleController::refreshPixelLists() {
  ui_.listSelectedRuleFacPixel->clear();
  addPixelTypes(*ui_.listSelectedRuleFacPixel, model_);
  refreshSelectedFacPixel();

  refillEndPoints(*ui_.listNewRulePixelA, model_);
  refillEndPoints(*ui_.listNewRulePixelB, model_);
  refreshNewRulePixelA();
  refreshNewRulePixelB();
}

void RuleController::refreshRuleList() {
  const int remembered = selectedRule();
  ui_.listSelectedRule->clear();
  const bool hasRules = model_.getNumRules() >= 1;
  ui_.buttonDelRule->setEnabled(hasRules);
  ui_.listSelectedRule->setEnabled(hasRules);
  if (!hasRules) return noSelectedRule();
  for (int rule = 0; rule < model_.getNumRules(); ++rule)
    ui_.listSelectedRule->addItem(ruleTitle(model_, rule));
  restoreSelection(*ui_.listSelectedRule, remembered);
  refreshSelectedRule();
}

void RuleController::noSelectedRule() { panel_->showNoRule(); }

void RuleController::refreshSelectedRule() {
  if (selectedRule() >= 0) panel_->show(selectedRule());
}

void RuleController::refreshSelectedFacPixel() {
  if (selectedRule() >= 0) panel_->showFacPixel(selectedRule());
}

void RuleController::refreshNewRulePixelA() {
  showEndPointColor(*ui_.colorNewRulePixelA, model_, chosenEndPoint(*ui_.listNewRulePixelA));
}

void RuleController::refreshNewRulePixelB() {
  showEndPointColor(*ui_.colorNewRulePixelB, model_, chosenEndPoint(*ui_.listNewRulePixelB));
}

void RuleController::listSelectedRuleChanged() {
  commitTypedNames(ui_);
  refreshSelectedRule();
}

void RuleController::textRuleNameChanged() {
  const int rule = ui_.textSelectedRuleName->item();
  if (rule < 0) return;
  model_.setRuleName(rule, ui_.textSelectedRuleName->text().toStdString());
  refreshRuleList();
}

void RuleController::listSelectedRuleFacNumChanged() {
  const int facNum = ui_.listSelectedRuleFacNum->currentIndex();
  model_.setRuleFacNum(selectedRule(), facNum);
  panel_->showFacPixelControls(facNum >= 1);
}

void RuleController::listSelectedRuleFacPixelChanged() {
  model_.setRuleFacPixel(selectedRule(), ui_.listSelectedRuleFacPixel->currentIndex());
  refreshSelectedFacPixel();
}

void RuleController::buttonAddNewRuleClicked() {
  commitTypedNames(ui_);
  const int type = ui_.listNewRuleType->currentIndex();
  const int endA = chosenEndPoint(*ui_.listNewRulePixelA), endB = chosenEndPoint(*ui_.listNewRulePixelB);
  if (!model_.canMakeNewRule(type, endA, endB)) return;
  model_.makeNewRule(ui_.textNewRuleName->text().toStdString(), type, endA, endB);
  resetNewRule();
  refreshRuleList();
  ui_.listSelectedRule->setCurrentIndex(ui_.listSelectedRule->count() - 1);
  refreshSelectedRule();
  ui_.buttonDelRule->setEnabled(true);
}

void RuleController::resetNewRule() {
  ui_.textNewRuleName->setText(ui_.textNewRuleName->prompt());
  for (QComboBox* list :
       std::initializer_list<QComboBox*>{ui_.listNewRuleType, ui_.listNewRulePixelA, ui_.listNewRulePixelB})
    list->setCurrentIndex(0);
  refreshNewRulePixelA();
  refreshNewRulePixelB();
}

void RuleController::buttonDelRuleClicked() {
  commitTypedNames(ui_);
  model_.delRule(selectedRule());
  ui_.listSelectedRule->setCurrentIndex(0);
  refreshRuleList();
}

void RuleController::sliderSelectedRuleParamChanged() { setParam(ui_.sliderSelectedRuleParam->value()); }

void RuleController::buttonZeroParamClicked() { setParam(0.0); }

void RuleController::setParam(double parameter) {
  const int r = selectedRule();
  panel_->showParam(parameter);
  model_.setRuleParam(r, parameter);
  if (setsPairEnergy(model_.getRuleType(r))) model_.setInteractionParams(r, parameter);
}

void RuleController::checkSelectedRuleIgnoreEnergyChanged() {
  model_.setRuleIgnoreEnergy(selectedRule(), ui_.checkSelectedRuleIgnoreEnergy->isChecked() ? 1 : 0);
}

void RuleController::checkSelectedRuleDisabledChanged() {
  const int r = selectedRule();
  const bool disabled = ui_.checkSelectedRuleDisabled->isChecked();
  model_.setRuleDisabled(r, disabled ? 1 : 0);
  if (!setsPairEnergy(model_.getRuleType(r))) return;
  if (disabled)
    model_.disableInteraction(r);
  else
    model_.enableInteraction(r);
}

}  // namespace quorvane
