#include "ListItems.h"
#include "app/MainViewController.h"
#include "ui_MainWindow.h"

namespace quorvane {

int MainViewController::selectedPixelType() const { return ui->listSelectPixelType->currentIndex(); }

void MainViewController::refreshPixelLists() {
  const LatticeModel& model = *myGraphicalLatticeModel;

  const int paintType = ui->listPaintType->currentIndex();
  ui->listPaintType->clear();
  addPixelTypes(*ui->listPaintType, model);
  restoreSelection(*ui->listPaintType, paintType);
  refreshSelectedPaintTool();

  const int selected = selectedPixelType();
  ui->listSelectPixelType->clear();
  addPixelTypes(*ui->listSelectPixelType, model);
  restoreSelection(*ui->listSelectPixelType, selected);
  refreshSelectedPixel();

  ui->listSelectedRuleFacPixel->clear();
  addPixelTypes(*ui->listSelectedRuleFacPixel, model);
  refreshSelectedFacPixel();

  const int endA = ui->listNewRulePixelA->currentIndex(), endB = ui->listNewRulePixelB->currentIndex();
  for (QComboBox* list : {ui->listNewRulePixelA, ui->listNewRulePixelB}) {
    list->clear();
    list->addItem(endPointTitle(model, kAnyPixelType));
    addPixelTypes(*list, model);
  }
  restoreSelection(*ui->listNewRulePixelA, endA);
  restoreSelection(*ui->listNewRulePixelB, endB);
  refreshNewRulePixelA();
  refreshNewRulePixelB();
}

void MainViewController::refreshSelectedPaintTool() {
  ui->colorPaintType->setRgb(pixelColor(*myGraphicalLatticeModel, ui->listPaintType->currentIndex()));
}

void MainViewController::refreshSelectedPixel() {
  const LatticeModel& model = *myGraphicalLatticeModel;
  const int s = selectedPixelType();
  const int masquerade = model.getPixelMasqueradeAs(s);
  ui->textPixelName->showName(s, model.getPixelName(s));
  ui->checkImmobilePixel->setChecked(model.getPixelImmobile(s) != 0);
  ui->colorSelectedPixelColor->setRgb(pixelColor(model, s));
  ui->sliderSelectedPixelPersistence->setValue(model.getPixelPersistence(s));
  ui->sliderSelectedPixelTrans->setValue(model.getPixelAlpha(s));
  showPixelField(model.getPixelField(s));

  const bool masquerades = masquerade != kNoMasquerade;
  ui->checkMasqueradePixel->setEnabled(ui->listSelectPixelType->count() >= 2);
  ui->checkMasqueradePixel->setChecked(masquerades);
  ui->listMasqueradeType->setCurrentIndex(0);
  refreshMasqueradePixelList();
  showMasqueradeControls(masquerades);
  if (!masquerades) return;
  selectValue(*ui->listMasqueradeType, masquerade > s ? masquerade - 1 : masquerade);
  refreshSelectedMasqueradePixel();
}

void MainViewController::refreshMasqueradePixelList() {
  const int remembered = ui->listMasqueradeType->currentIndex();
  const int s = selectedPixelType();
  ui->listMasqueradeType->clear();
  for (int type = 0; type < myGraphicalLatticeModel->getNumPixelTypes(); ++type)
    if (type != s) ui->listMasqueradeType->addItem(pixelTitle(*myGraphicalLatticeModel, type));
  restoreSelection(*ui->listMasqueradeType, remembered);
}

void MainViewController::refreshSelectedMasqueradePixel() {
  const int masquerade = myGraphicalLatticeModel->getPixelMasqueradeAs(selectedPixelType());
  ui->colorMasqueradeType->setRgb(pixelColor(*myGraphicalLatticeModel, masquerade));
}

void MainViewController::showMasqueradeControls(bool shown) {
  ui->labelMasqueradeType->setVisible(shown);
  ui->listMasqueradeType->setVisible(shown);
  ui->colorMasqueradeType->setVisible(shown);
}

void MainViewController::showPixelField(double energy) {
  ui->sliderPixelField->setValue(energy);
  ui->textPixelField->setText(threeDecimals(energy));
}

}  // namespace quorvane
