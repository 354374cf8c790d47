#include "app/RunController.h"

#include <system_error>

#include "ConnectButton.h"
#include "app/LatticeSizing.h"
#include "app/PixelTypeController.h"
#include "app/RuleController.h"
#include "ui_MainWindow.h"

namespace quorvane {
namespace {

/// Moves the focus to the other button before the one that has it is disabled; otherwise Qt would move it to
/// the next control in the tab order.
void passFocus(const QWidget& from, QWidget& to) {
  if (from.hasFocus()) to.setFocus();
}

}  // namespace

RunController::RunController(Ui::MainWindow& ui, PixelTypeController& pixelTypes, RuleController& rules)
    : ui_(ui), model_(*ui.myGraphicalLatticeModel), pixelTypes_(pixelTypes), rules_(rules) {
  connectControls();
}

void RunController::connectControls() {
  using Self = RunController;
  connect(ui_.stepperNumPixelTypes, &Stepper::stepped, this, &Self::stepperChanged);
  connect(ui_.sliderWidthHeight, &DoubleSlider::moved, this, &Self::sliderWidthHeightChanged);
  connectButton(ui_.buttonInitialiseModel, this, &Self::buttonInitializeModelAction);
  connectButton(ui_.buttonRemakeModel, this, &Self::buttonRemakeModelClick);
  connect(ui_.sliderSimulationSpeed, &DoubleSlider::moved, this, &Self::sliderSimulationSpeedChanged);
  connectButton(ui_.buttonRunModel, this, &Self::buttonRunLatticeModelAction);
  connectButton(ui_.buttonStopModel, this, &Self::buttonStopLatticeModelAction);
  connect(ui_.checkPauseWhilePaint, &QCheckBox::clicked, this, &Self::checkPauseWhilePaint);
  connectButton(ui_.buttonFullScreen, this, &Self::EnterFullScreen);
  connect(&model_, &GraphicalLatticeModelGL::fullScreenLeft, this, &Self::focusRunOrStop);
}

void RunController::awakeFromNib() {
  pixelTypes_.showNumPixelTypes(2);
  sliderWidthHeightChanged();
  sliderSimulationSpeedChanged();
  pixelTypes_.showNoSystem();
  rules_.showNoSystem();
}

void RunController::awakenControls() {
  pixelTypes_.selectFirstItems();
  rules_.selectFirstItems();
  pixelTypes_.refreshPixelLists();
  rules_.refreshRuleList();

  // A system is made or opened only once, then remade, edited and saved.
  for (QWidget* control : std::initializer_list<QWidget*>{ui_.buttonInitialiseModel, ui_.stepperNumPixelTypes,
                                                          ui_.buttonOpenSystem})
    control->setEnabled(false);
  for (QWidget* control :
       std::initializer_list<QWidget*>{ui_.buttonRemakeModel, ui_.buttonSaveSystem, ui_.checkPauseWhilePaint,
                                       ui_.buttonRunModel, ui_.buttonFullScreen})
    control->setEnabled(true);
  pixelTypes_.enableControls();
  rules_.enableControls();
}

void RunController::showSize(int numTypes, int density) {
  pixelTypes_.showNumPixelTypes(numTypes);
  ui_.sliderWidthHeight->setValue(density);
  ui_.textWidthHeight->setText(QString::number(density));
}

void RunController::stepperChanged() {
  ui_.textNumPixelTypes->setText(QString::number(ui_.stepperNumPixelTypes->value()));
}

void RunController::sliderWidthHeightChanged() {
  ui_.textWidthHeight->setText(QString::number(ui_.sliderWidthHeight->intValue()));
}

void RunController::remake(int numTypes) {
  const auto [imax, jmax] =
      latticeSize(model_.getWidth(), model_.getHeight(), ui_.sliderWidthHeight->intValue());
  model_.initializeLatticeModel(numTypes, imax, jmax);
}

void RunController::buttonInitializeModelAction() {
  remake(ui_.stepperNumPixelTypes->value());
  awakenControls();
  focusRunOrStop();
  ui_.statusLine->refresh();
  emit systemStarted();
}

void RunController::buttonRemakeModelClick() {
  remake(-1);
  focusRunOrStop();
  ui_.statusLine->refresh();
}

void RunController::sliderSimulationSpeedChanged() {
  model_.setSimulationSpeed(ui_.sliderSimulationSpeed->intValue());
}

void RunController::showRunningConfiguration() {
  ui_.buttonStopModel->setEnabled(true);
  passFocus(*ui_.buttonRunModel, *ui_.buttonStopModel);
  ui_.buttonRunModel->setEnabled(false);
  ui_.sliderWidthHeight->setEnabled(false);
  ui_.buttonRemakeModel->setEnabled(false);
}

void RunController::showStoppedConfiguration() {
  ui_.buttonRunModel->setEnabled(true);
  passFocus(*ui_.buttonStopModel, *ui_.buttonRunModel);
  ui_.buttonStopModel->setEnabled(false);
  ui_.sliderWidthHeight->setEnabled(true);
  ui_.buttonRemakeModel->setEnabled(true);
}

void RunController::focusRunOrStop() {
  (ui_.buttonRunModel->isEnabled() ? ui_.buttonRunModel : ui_.buttonStopModel)->setFocus();
}

void RunController::buttonRunLatticeModelAction() {
  showRunningConfiguration();
  try {
    model_.runLatticeModelInBackground();
    ui_.statusLine->refresh();
  } catch (const std::system_error& error) {
    showStoppedConfiguration();
    ui_.statusLine->showMessage(tr("The run cannot start: %1").arg(QString::fromLocal8Bit(error.what())));
  }
}

void RunController::buttonStopLatticeModelAction() {
  showStoppedConfiguration();
  model_.stopLatticeModel();
  ui_.statusLine->refresh();
}

void RunController::checkPauseWhilePaint() {
  model_.setPauseWhilePaint(ui_.checkPauseWhilePaint->isChecked() ? 1 : 0);
}

void RunController::EnterFullScreen() {
  // In full screen keys may stop the run, so the window shows the stopped configuration.
  showStoppedConfiguration();
  model_.setFullScreen(1);
  model_.enterFullScreenMode();
}

}  // namespace quorvane
