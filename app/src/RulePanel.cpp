#include "ListItems.h"
#include "app/MainViewController.h"
#include "ui_MainWindow.h"

namespace quorvane {
namespace {

void showEndPoint(const LatticeModel& model, int end, QLabel& text, ColorWell& color) {
  text.setText(endPointTitle(model, end));
  color.setVisible(end != kAnyPixelType);
  if (end != kAnyPixelType) color.setRgb(pixelColor(model, end));
}

/// Item 0 of the list stands for any pixel type, item k + 1 for type k.
void showChosenEndPoint(const LatticeModel& model, const QComboBox& list, ColorWell& color) {
  const int type = list.currentIndex() - 1;
  color.setVisible(type >= 0);
  if (type >= 0) color.setRgb(pixelColor(model, type));
}

}  // namespace

int MainViewController::selectedRule() const { return ui->listSelectedRule->currentIndex(); }

void MainViewController::refreshRuleList() {
  const LatticeModel& model = *myGraphicalLatticeModel;
  const int remembered = selectedRule();
  ui->listSelectedRule->clear();
  if (model.getNumRules() < 1) {
    ui->buttonDelRule->setEnabled(false);
    ui->listSelectedRule->setEnabled(false);
    noSelectedRule();
    return;
  }
  ui->listSelectedRule->setEnabled(true);
  for (int rule = 0; rule < model.getNumRules(); ++rule)
    ui->listSelectedRule->addItem(ruleTitle(model, rule));
  restoreSelection(*ui->listSelectedRule, remembered);
  ui->buttonDelRule->setEnabled(true);
  refreshSelectedRule();
}

void MainViewController::noSelectedRule() {
  ui->textSelectedRuleName->clearName();
  ui->textSelectedRuleName->setEnabled(false);
  ui->textSelectedRuleType->setText({});
  setParamRange(0.0, 1.0);
  showFacNumControls(false);
  showFacPixelControls(false);
  ui->buttonZeroParam->setEnabled(false);
  for (QCheckBox* check : {ui->checkSelectedRuleDisabled, ui->checkSelectedRuleIgnoreEnergy}) {
    check->setEnabled(false);
    check->setChecked(false);
  }
  ui->textSelectedRulePixelA->setText({});
  ui->colorSelectedRulePixelA->setVisible(false);
  ui->textSelectedRulePixelB->setText({});
  ui->colorSelectedRulePixelB->setVisible(false);
  showParam(0.0);
  ui->sliderSelectedRuleParam->setEnabled(false);
}

void MainViewController::refreshSelectedRule() {
  const LatticeModel& model = *myGraphicalLatticeModel;
  const int r = selectedRule();
  if (r < 0) return;
  ui->buttonZeroParam->setEnabled(true);
  ui->textSelectedRuleName->setEnabled(true);
  ui->textSelectedRuleName->showName(r, model.getRuleName(r));
  showRuleType(model.getRuleType(r), model.getRuleFacNum(r));

  // Enabled also while it is hidden, as for an interaction.
  ui->checkSelectedRuleIgnoreEnergy->setEnabled(true);
  ui->checkSelectedRuleIgnoreEnergy->setChecked(model.getRuleIgnoreEnergy(r) != 0);
  ui->checkSelectedRuleDisabled->setEnabled(true);
  ui->checkSelectedRuleDisabled->setChecked(model.getRuleDisabled(r) != 0);

  showEndPoint(model, model.getRulePixelA(r), *ui->textSelectedRulePixelA, *ui->colorSelectedRulePixelA);
  showEndPoint(model, model.getRulePixelB(r), *ui->textSelectedRulePixelB, *ui->colorSelectedRulePixelB);
  ui->sliderSelectedRuleParam->setEnabled(true);
  showParam(model.getRuleParam(r));
  selectValue(*ui->listSelectedRuleFacNum, model.getRuleFacNum(r));
  refreshSelectedFacPixel();
}

void MainViewController::showRuleType(int type, int facNum) {
  static constexpr const char* names[] = {"Irreversible Flip", "Reversible Flip", "Swap",
                                          "Pixel-Pixel Interaction"};
  if (type < kIrreversibleFlip || type > kPixelPixelInteraction) return;
  const bool flip = type == kIrreversibleFlip || type == kReversibleFlip;
  const bool interaction = type == kPixelPixelInteraction;
  ui->textSelectedRuleType->setText(names[type]);
  setParamRange(interaction ? -10.0 : 0.0, interaction ? 10.0 : 1.0);
  ui->checkSelectedRuleIgnoreEnergy->setVisible(!interaction);
  showFacNumControls(flip);
  showFacPixelControls(flip && facNum >= 1);
}

void MainViewController::refreshSelectedFacPixel() {
  const int r = selectedRule();
  if (r < 0) return;
  const int type = myGraphicalLatticeModel->getRuleFacPixel(r);
  selectValue(*ui->listSelectedRuleFacPixel, type);
  // A document may hold a rule that no single type facilitates.
  if (type == kAnyPixelType)
    ui->colorSelectedRuleFacPixel->clear();
  else
    ui->colorSelectedRuleFacPixel->setRgb(pixelColor(*myGraphicalLatticeModel, type));
}

void MainViewController::refreshNewRulePixelA() {
  showChosenEndPoint(*myGraphicalLatticeModel, *ui->listNewRulePixelA, *ui->colorNewRulePixelA);
}

void MainViewController::refreshNewRulePixelB() {
  showChosenEndPoint(*myGraphicalLatticeModel, *ui->listNewRulePixelB, *ui->colorNewRulePixelB);
}

void MainViewController::showFacNumControls(bool shown) {
  ui->listSelectedRuleFacNum->setVisible(shown);
  ui->labelSelectedRuleFacNum->setVisible(shown);
}

void MainViewController::showFacPixelControls(bool shown) {
  ui->listSelectedRuleFacPixel->setVisible(shown);
  ui->labelSelectedRuleFacPixel->setVisible(shown);
  ui->colorSelectedRuleFacPixel->setVisible(shown);
}

void MainViewController::setParamRange(double minimum, double maximum) {
  ui->sliderSelectedRuleParam->setMaximumValue(maximum);
  ui->sliderSelectedRuleParam->setMinimumValue(minimum);
}

void MainViewController::showParam(double parameter) {
  ui->sliderSelectedRuleParam->setValue(parameter);
  ui->textSelectedRuleParam->setText(threeDecimals(parameter));
}

}  // namespace quorvane
