#include "app/MainViewController.h"
#include "ui_MainWindow.h"

namespace quorvane {
namespace {

/// Calls the handler when the field loses the focus or takes Return, if something was typed.
template <class Handler>
void connectName(QLineEdit* field, MainViewController* controller, Handler handler) {
  QObject::connect(field, &QLineEdit::editingFinished, controller, [field, controller, handler] {
    if (field->isModified()) (controller->*handler)();
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
  connect(ui->buttonInitialiseModel, &QPushButton::clicked, this, &Self::buttonInitializeModelAction);
  connect(ui->buttonRemakeModel, &QPushButton::clicked, this, &Self::buttonRemakeModelClick);
  connect(ui->buttonOpenSystem, &QPushButton::clicked, this, &Self::buttonOpenSystemClicked);
  connect(ui->buttonSaveSystem, &QPushButton::clicked, this, &Self::buttonSaveSystemClicked);
  connect(ui->sliderSimulationSpeed, &DoubleSlider::moved, this, &Self::sliderSimulationSpeedChanged);
  connect(ui->buttonRunModel, &QPushButton::clicked, this, &Self::buttonRunLatticeModelAction);
  connect(ui->buttonStopModel, &QPushButton::clicked, this, &Self::buttonStopLatticeModelAction);
  connect(ui->checkPauseWhilePaint, &QCheckBox::clicked, this, &Self::checkPauseWhilePaint);
  connect(ui->listPaintType, &QComboBox::activated, this, &Self::listPaintTypeChanged);
  connect(ui->buttonFullScreen, &QPushButton::clicked, this, &Self::EnterFullScreen);
}

void MainViewController::connectPixelTypePanel() {
  using Self = MainViewController;
  connectName(ui->textPixelName, this, &Self::textPixelNameChanged);
  connect(ui->listSelectPixelType, &QComboBox::activated, this, &Self::listSelectedPixelChanged);
  connect(ui->colorSelectedPixelColor, &ColorWell::picked, this, &Self::colorSelectedPixelColorChanged);
  connect(ui->sliderSelectedPixelPersistence, &DoubleSlider::moved, this,
          &Self::sliderSelectedPixelPersChanged);
  connect(ui->sliderSelectedPixelTrans, &DoubleSlider::moved, this, &Self::sliderSelectedPixelTransChanged);
  connect(ui->sliderPixelField, &DoubleSlider::moved, this, &Self::sliderPixelFieldChanged);
  connect(ui->buttonZeroPixelField, &QPushButton::clicked, this, &Self::buttonZeroPixelFieldPushed);
  connect(ui->buttonAddNewPixel, &QPushButton::clicked, this, &Self::buttonAddNewPixelClicked);
  connect(ui->checkImmobilePixel, &QCheckBox::clicked, this, &Self::checkImmobilePixelChanged);
  connect(ui->checkMasqueradePixel, &QCheckBox::clicked, this, &Self::checkMasqueradePixelChanged);
  connect(ui->listMasqueradeType, &QComboBox::activated, this, &Self::listMasqueradeTypeChanged);
}

void MainViewController::connectRulePanel() {
  using Self = MainViewController;
  connect(ui->listSelectedRule, &QComboBox::activated, this, &Self::listSelectedRuleChanged);
  connectName(ui->textSelectedRuleName, this, &Self::textRuleNameChanged);
  connect(ui->listSelectedRuleFacNum, &QComboBox::activated, this, &Self::listSelectedRuleFacNumChanged);
  connect(ui->listSelectedRuleFacPixel, &QComboBox::activated, this, &Self::listSelectedRuleFacPixelChanged);
  connect(ui->listNewRulePixelA, &QComboBox::activated, this, &Self::listNewRulePixelAChanged);
  connect(ui->listNewRulePixelB, &QComboBox::activated, this, &Self::listNewRulePixelBChanged);
  connect(ui->buttonAddNewRule, &QPushButton::clicked, this, &Self::buttonAddNewRuleClicked);
  connect(ui->buttonDelRule, &QPushButton::clicked, this, &Self::buttonDelRuleClicked);
  connect(ui->sliderSelectedRuleParam, &DoubleSlider::moved, this, &Self::sliderSelectedRuleParamChanged);
  connect(ui->buttonZeroParam, &QPushButton::clicked, this, &Self::buttonZeroParamClicked);
  connect(ui->checkSelectedRuleDisabled, &QCheckBox::clicked, this, &Self::checkSelectedRuleDisabledChanged);
  connect(ui->checkSelectedRuleIgnoreEnergy, &QCheckBox::clicked, this,
          &Self::checkSelectedRuleIgnoreEnergyChanged);
}

void MainViewController::commitTypedNames() {
  if (ui->textPixelName->isModified()) textPixelNameChanged();
  if (ui->textSelectedRuleName->isModified()) textRuleNameChanged();
}

}  // namespace quorvane
