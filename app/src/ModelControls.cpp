#include <system_error>

#include "app/LatticeSizing.h"
#include "app/MainViewController.h"
#include "ui_MainWindow.h"

namespace quorvane {
namespace {

/// Lets the other button have the focus before one that has it is disabled, which would hand it to the next
/// control in the tab order.
void passFocus(const QWidget& from, QWidget& to) {
  if (from.hasFocus()) to.setFocus();
}

}  // namespace

void MainViewController::stepperChanged() {
  ui->textNumPixelTypes->setText(QString::number(ui->stepperNumPixelTypes->value()));
}

void MainViewController::sliderWidthHeightChanged() {
  ui->textWidthHeight->setText(QString::number(ui->sliderWidthHeight->intValue()));
}

void MainViewController::remake(int numTypes) {
  const auto [imax, jmax] =
      latticeSize(myGraphicalLatticeModel->getWidth(), myGraphicalLatticeModel->getHeight(),
                  ui->sliderWidthHeight->intValue());
  myGraphicalLatticeModel->initializeLatticeModel(numTypes, imax, jmax);
}

void MainViewController::buttonInitializeModelAction() {
  remake(ui->stepperNumPixelTypes->value());
  awakenControls();
  focusRunOrStop();
  ui->statusLine->refresh();
  emit systemStarted();
}

void MainViewController::buttonRemakeModelClick() {
  remake(-1);
  focusRunOrStop();
  ui->statusLine->refresh();
}

void MainViewController::sliderSimulationSpeedChanged() {
  myGraphicalLatticeModel->setSimulationSpeed(ui->sliderSimulationSpeed->intValue());
}

void MainViewController::showRunningConfiguration() {
  ui->buttonStopModel->setEnabled(true);
  passFocus(*ui->buttonRunModel, *ui->buttonStopModel);
  ui->buttonRunModel->setEnabled(false);
  ui->sliderWidthHeight->setEnabled(false);
  ui->buttonRemakeModel->setEnabled(false);
}

void MainViewController::showStoppedConfiguration() {
  ui->buttonRunModel->setEnabled(true);
  passFocus(*ui->buttonStopModel, *ui->buttonRunModel);
  ui->buttonStopModel->setEnabled(false);
  ui->sliderWidthHeight->setEnabled(true);
  ui->buttonRemakeModel->setEnabled(true);
}

void MainViewController::focusRunOrStop() {
  (ui->buttonRunModel->isEnabled() ? ui->buttonRunModel : ui->buttonStopModel)->setFocus();
}

void MainViewController::buttonRunLatticeModelAction() {
  showRunningConfiguration();
  try {
    myGraphicalLatticeModel->runLatticeModelInBackground();
    ui->statusLine->refresh();
  } catch (const std::system_error& error) {
    showStoppedConfiguration();
    ui->statusLine->showMessage(tr("The run cannot start: %1").arg(QString::fromLocal8Bit(error.what())));
  }
}

void MainViewController::buttonStopLatticeModelAction() {
  showStoppedConfiguration();
  myGraphicalLatticeModel->stopLatticeModel();
  ui->statusLine->refresh();
}

void MainViewController::checkPauseWhilePaint() {
  myGraphicalLatticeModel->setPauseWhilePaint(ui->checkPauseWhilePaint->isChecked() ? 1 : 0);
}

void MainViewController::listPaintTypeChanged() {
  myGraphicalLatticeModel->setPaintbrushColor(ui->listPaintType->currentIndex());
  refreshSelectedPaintTool();
}

void MainViewController::EnterFullScreen() {
  // A run goes on: the keys of full screen stop it, so the window is ready for what it finds on the way back.
  showStoppedConfiguration();
  myGraphicalLatticeModel->setFullScreen(1);
  myGraphicalLatticeModel->enterFullScreenMode();
}

}  // namespace quorvane
