#include "app/MainViewController.h"
#include "ui_MainWindow.h"

namespace quorvane {
namespace {

/// The type that an item of the masquerade list stands for; the list leaves the selected type out.
int masqueradeTypeOf(int item, int selected) { return item < selected ? item : item + 1; }

}  // namespace

void MainViewController::listSelectedPixelChanged() {
  commitTypedNames();
  refreshSelectedPixel();
}

void MainViewController::textPixelNameChanged() {
  const int type = ui->textPixelName->item();
  if (type < 0) return;
  myGraphicalLatticeModel->setPixelName(type, ui->textPixelName->text().toStdString());
  // The selected rule is shown anew, with the name that it has.
  commitTypedRuleName();
  refreshPixelLists();
  if (myGraphicalLatticeModel->getNumRules() > 0) refreshSelectedRule();
}

void MainViewController::colorSelectedPixelColorChanged() {
  const auto [red, green, blue] = ui->colorSelectedPixelColor->rgb();
  myGraphicalLatticeModel->setPixelColor(selectedPixelType(), red, green, blue);
  commitTypedRuleName();
  refreshSelectedPaintTool();
  if (myGraphicalLatticeModel->getNumRules() > 0) refreshSelectedRule();
  refreshNewRulePixelA();
  refreshNewRulePixelB();
}

void MainViewController::sliderSelectedPixelPersChanged() {
  myGraphicalLatticeModel->setPixelPersistence(selectedPixelType(),
                                               ui->sliderSelectedPixelPersistence->value());
}

void MainViewController::sliderSelectedPixelTransChanged() {
  myGraphicalLatticeModel->setPixelAlpha(selectedPixelType(), ui->sliderSelectedPixelTrans->value());
}

void MainViewController::sliderPixelFieldChanged() {
  const double energy = ui->sliderPixelField->value();
  showPixelField(energy);
  myGraphicalLatticeModel->setPixelField(selectedPixelType(), energy);
}

void MainViewController::buttonZeroPixelFieldPushed() {
  showPixelField(0.0);
  myGraphicalLatticeModel->setPixelField(selectedPixelType(), 0.0);
}

void MainViewController::buttonAddNewPixelClicked() {
  commitTypedNames();
  myGraphicalLatticeModel->addPixelType();
  const int numTypes = myGraphicalLatticeModel->getNumPixelTypes();
  ui->stepperNumPixelTypes->setValue(numTypes);
  ui->textNumPixelTypes->setText(QString::number(numTypes));
  refreshPixelLists();
  ui->listSelectPixelType->setCurrentIndex(ui->listSelectPixelType->count() - 1);
  refreshSelectedPixel();
  if (numTypes == kMaxPixelTypes) ui->buttonAddNewPixel->setEnabled(false);
}

void MainViewController::checkImmobilePixelChanged() {
  myGraphicalLatticeModel->setPixelImmobile(selectedPixelType(), ui->checkImmobilePixel->isChecked() ? 1 : 0);
}

void MainViewController::checkMasqueradePixelChanged() {
  const int s = selectedPixelType();
  const bool masquerades = ui->checkMasqueradePixel->isChecked();
  showMasqueradeControls(masquerades);
  if (!masquerades) return myGraphicalLatticeModel->setPixelMasqueradeAs(s, kNoMasquerade);
  ui->listMasqueradeType->setCurrentIndex(0);
  myGraphicalLatticeModel->setPixelMasqueradeAs(s, masqueradeTypeOf(0, s));
  refreshSelectedMasqueradePixel();
}

void MainViewController::listMasqueradeTypeChanged() {
  const int s = selectedPixelType();
  myGraphicalLatticeModel->setPixelMasqueradeAs(s,
                                                masqueradeTypeOf(ui->listMasqueradeType->currentIndex(), s));
  refreshSelectedMasqueradePixel();
}

}  // namespace quorvane
