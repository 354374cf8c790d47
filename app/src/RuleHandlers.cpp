#include "app/MainViewController.h"
#include "ui_MainWindow.h"

namespace quorvane {
namespace {

int endPointOf(const QComboBox& list) {
  const int item = list.currentIndex();
  return item > 0 ? item - 1 : kAnyPixelType;
}

}  // namespace

void MainViewController::listSelectedRuleChanged() {
  commitTypedNames();
  refreshSelectedRule();
}

void MainViewController::textRuleNameChanged() {
  const int rule = ui->textSelectedRuleName->item();
  if (rule < 0) return;
  myGraphicalLatticeModel->setRuleName(rule, ui->textSelectedRuleName->text().toStdString());
  refreshRuleList();
}

void MainViewController::listSelectedRuleFacNumChanged() {
  const int facNum = ui->listSelectedRuleFacNum->currentIndex();
  myGraphicalLatticeModel->setRuleFacNum(selectedRule(), facNum);
  showFacPixelControls(facNum >= 1);
}

void MainViewController::listSelectedRuleFacPixelChanged() {
  myGraphicalLatticeModel->setRuleFacPixel(selectedRule(), ui->listSelectedRuleFacPixel->currentIndex());
  refreshSelectedFacPixel();
}

void MainViewController::listNewRulePixelAChanged() { refreshNewRulePixelA(); }

void MainViewController::listNewRulePixelBChanged() { refreshNewRulePixelB(); }

void MainViewController::buttonAddNewRuleClicked() {
  commitTypedNames();
  const int type = ui->listNewRuleType->currentIndex();
  const int endA = endPointOf(*ui->listNewRulePixelA), endB = endPointOf(*ui->listNewRulePixelB);
  if (!myGraphicalLatticeModel->canMakeNewRule(type, endA, endB)) return;
  myGraphicalLatticeModel->makeNewRule(ui->textNewRuleName->text().toStdString(), type, endA, endB);

  ui->textNewRuleName->setText(ui->textNewRuleName->prompt());
  for (QComboBox* list :
       std::initializer_list<QComboBox*>{ui->listNewRuleType, ui->listNewRulePixelA, ui->listNewRulePixelB})
    list->setCurrentIndex(0);
  refreshNewRulePixelA();
  refreshNewRulePixelB();

  refreshRuleList();
  ui->listSelectedRule->setCurrentIndex(ui->listSelectedRule->count() - 1);
  refreshSelectedRule();
  ui->buttonDelRule->setEnabled(true);
}

void MainViewController::buttonDelRuleClicked() {
  commitTypedNames();
  myGraphicalLatticeModel->delRule(selectedRule());
  ui->listSelectedRule->setCurrentIndex(0);
  refreshRuleList();
}

}  // namespace quorvane
