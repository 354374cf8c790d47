#include "app/MainViewController.h"
#include "ui_MainWindow.h"

namespace quorvane {
namespace {

/// Calls the handler when the button is pressed. A press by its mnemonic comes a tenth of a second late, and
/// the button may be disabled by then.
template <class Handler>
void connectButton(QPushButton* button, MainViewController* controller, Handler handler) {
  QObject::connect(button, &QPushButton::clicked, controller, [button, controller, handler] {
    if (button->isEnabled()) (controller->*handler)();
  });
}

}  // namespace

MainViewController::MainViewController(QMainWindow* window, Ui::MainWindow* outlets)
    : myWindow(window), ui(outlets), myGraphicalLatticeModel(outlets->myGraphicalLatticeModel) {
  connectModelControls();
  connectPixelTypePanel();
  connectRulePanel();
}

void MainViewController::connectModelControls() {
  using Self = MainViewController;
  connect(ui->stepperNumPixelTypes, &Stepper::stepped, this, &Self::stepperChanged);
  connect(ui->sliderWidthHeight, &DoubleSlider::moved, this, &Self::sliderWidthHeightChanged);
  connectButton(ui->buttonInitialiseModel, this, &Self::buttonInitializeModelAction);
  connectButton(ui->buttonRemakeModel, this, &Self::buttonRemakeModelClick);
  connectButton(ui->buttonOpenSystem, this, &Self::buttonOpenSystemClicked);
  connectButton(ui->buttonSaveSystem, this, &Self::buttonSaveSystemClicked);
  connect(ui->sliderSimulationSpeed, &DoubleSlider::moved, this, &Self::sliderSimulationSpeedChanged);
  connectButton(ui->buttonRunModel, this, &Self::buttonRunLatticeModelAction);
  connectButton(ui->buttonStopModel, this, &Self::buttonStopLatticeModelAction);
  connect(ui->checkPauseWhilePaint, &QCheckBox::clicked, this, &Self::checkPauseWhilePaint);
  connect(ui->listPaintType, &QComboBox::activated, this, &Self::listPaintTypeChanged);
  connectButton(ui->buttonFullScreen, this, &Self::EnterFullScreen);
  connect(myGraphicalLatticeModel, &GraphicalLatticeModelGL::fullScreenLeft, this, &Self::focusRunOrStop);
}

void MainViewController::connectPixelTypePanel() {
  using Self = MainViewController;
  connect(ui->textPixelName, &NameField::nameEdited, this, &Self::textPixelNameChanged);
  connect(ui->listSelectPixelType, &QComboBox::activated, this, &Self::listSelectedPixelChanged);
  connect(ui->colorSelectedPixelColor, &ColorWell::picked, this, &Self::colorSelectedPixelColorChanged);
  connect(ui->sliderSelectedPixelPersistence, &DoubleSlider::moved, this,
          &Self::sliderSelectedPixelPersChanged);
  connect(ui->sliderSelectedPixelTrans, &DoubleSlider::moved, this, &Self::sliderSelectedPixelTransChanged);
  connect(ui->sliderPixelField, &DoubleSlider::moved, this, &Self::sliderPixelFieldChanged);
  connectButton(ui->buttonZeroPixelField, this, &Self::buttonZeroPixelFieldPushed);
  connectButton(ui->buttonAddNewPixel, this, &Self::buttonAddNewPixelClicked);
  connect(ui->checkImmobilePixel, &QCheckBox::clicked, this, &Self::checkImmobilePixelChanged);
  connect(ui->checkMasqueradePixel, &QCheckBox::clicked, this, &Self::checkMasqueradePixelChanged);
  connect(ui->listMasqueradeType, &QComboBox::activated, this, &Self::listMasqueradeTypeChanged);
}

void MainViewController::connectRulePanel() {
  using Self = MainViewController;
  connect(ui->listSelectedRule, &QComboBox::activated, this, &Self::listSelectedRuleChanged);
  connect(ui->textSelectedRuleName, &NameField::nameEdited, this, &Self::textRuleNameChanged);
  connect(ui->listSelectedRuleFacNum, &QComboBox::activated, this, &Self::listSelectedRuleFacNumChanged);
  connect(ui->listSelectedRuleFacPixel, &QComboBox::activated, this, &Self::listSelectedRuleFacPixelChanged);
  connect(ui->listNewRulePixelA, &QComboBox::activated, this, &Self::listNewRulePixelAChanged);
  connect(ui->listNewRulePixelB, &QComboBox::activated, this, &Self::listNewRulePixelBChanged);
  connectButton(ui->buttonAddNewRule, this, &Self::buttonAddNewRuleClicked);
  connectButton(ui->buttonDelRule, this, &Self::buttonDelRuleClicked);
  connect(ui->sliderSelectedRuleParam, &DoubleSlider::moved, this, &Self::sliderSelectedRuleParamChanged);
  connectButton(ui->buttonZeroParam, this, &Self::buttonZeroParamClicked);
  connect(ui->checkSelectedRuleDisabled, &QCheckBox::clicked, this, &Self::checkSelectedRuleDisabledChanged);
  connect(ui->checkSelectedRuleIgnoreEnergy, &QCheckBox::clicked, this,
          &Self::checkSelectedRuleIgnoreEnergyChanged);
}

void MainViewController::commitTypedNames() {
  commitTypedRuleName();
  if (ui->textPixelName->isEdited()) textPixelNameChanged();
}

void MainViewController::commitTypedRuleName() {
  if (ui->textSelectedRuleName->isEdited()) textRuleNameChanged();
}

}  // namespace quorvane
