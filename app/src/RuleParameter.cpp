#include "app/MainViewController.h"
#include "ui_MainWindow.h"

namespace quorvane {
namespace {

void storeParam(LatticeModel& model, int rule, double parameter) {
  model.setRuleParam(rule, parameter);
  if (model.getRuleType(rule) == kPixelPixelInteraction) model.setInteractionParams(rule, parameter);
}

}  // namespace

void MainViewController::sliderSelectedRuleParamChanged() {
  const double parameter = ui->sliderSelectedRuleParam->value();
  showParam(parameter);
  storeParam(*myGraphicalLatticeModel, selectedRule(), parameter);
}

void MainViewController::buttonZeroParamClicked() {
  showParam(0.0);
  storeParam(*myGraphicalLatticeModel, selectedRule(), 0.0);
}

void MainViewController::checkSelectedRuleIgnoreEnergyChanged() {
  myGraphicalLatticeModel->setRuleIgnoreEnergy(selectedRule(),
                                               ui->checkSelectedRuleIgnoreEnergy->isChecked() ? 1 : 0);
}

void MainViewController::checkSelectedRuleDisabledChanged() {
  const int r = selectedRule();
  const bool disabled = ui->checkSelectedRuleDisabled->isChecked();
  myGraphicalLatticeModel->setRuleDisabled(r, disabled ? 1 : 0);
  if (myGraphicalLatticeModel->getRuleType(r) != kPixelPixelInteraction) return;
  if (disabled)
    myGraphicalLatticeModel->disableInteraction(r);
  else
    myGraphicalLatticeModel->enableInteraction(r);
}

}  // namespace quorvane
