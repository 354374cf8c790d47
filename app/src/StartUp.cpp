#include "ListItems.h"
#include "app/MainViewController.h"
#include "ui_MainWindow.h"

namespace quorvane {

void MainViewController::awakeFromNib() {
  ui->stepperNumPixelTypes->setValue(2);
  ui->textNumPixelTypes->setText("2");
  ui->textWidthHeight->setText(QString::number(ui->sliderWidthHeight->intValue()));
  myGraphicalLatticeModel->setSimulationSpeed(ui->sliderSimulationSpeed->intValue());

  // Without a model the panels look as they do without a rule and without a masquerade.
  showMasqueradeControls(false);
  noSelectedRule();
  refreshNewRulePixelA();
  refreshNewRulePixelB();
}

void MainViewController::awakenControls() {
  for (QComboBox* list : {ui->listPaintType, ui->listSelectPixelType, ui->listSelectedRule,
                          ui->listSelectedRuleFacPixel, ui->listNewRulePixelA, ui->listNewRulePixelB})
    list->setCurrentIndex(0);
  refreshPixelLists();
  refreshRuleList();

  ui->buttonInitialiseModel->setEnabled(false);
  ui->stepperNumPixelTypes->setEnabled(false);
  ui->buttonRemakeModel->setEnabled(true);
  ui->buttonAddNewRule->setEnabled(true);
  if (myGraphicalLatticeModel->getNumPixelTypes() < kMaxPixelTypes) ui->buttonAddNewPixel->setEnabled(true);
  ui->buttonOpenSystem->setEnabled(false);
  for (QWidget* control : std::initializer_list<QWidget*>{
           ui->buttonSaveSystem, ui->listSelectPixelType, ui->textPixelName, ui->sliderSelectedPixelTrans,
           ui->sliderSelectedPixelPersistence, ui->checkImmobilePixel, ui->colorSelectedPixelColor,
           ui->sliderPixelField, ui->buttonZeroPixelField, ui->listNewRulePixelA, ui->listNewRulePixelB,
           ui->listPaintType, ui->checkPauseWhilePaint, ui->buttonRunModel, ui->buttonFullScreen})
    control->setEnabled(true);
}

}  // namespace quorvane
