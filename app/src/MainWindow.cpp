#include "app/MainWindow.h"

#include <QRegularExpressionValidator>

#include "ui_MainWindow.h"

namespace quorvane {

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent), ui_(std::make_unique<Ui::MainWindow>()) {
  ui_->setupUi(this);
  ui_->sliderSimulationSpeed->showValue();
  keepRoomOfHiddenControls();
  acceptPrintableNamesOnly();
  controller_ = std::make_unique<MainViewController>(this, ui_.get());
  controller_->awakeFromNib();
  plot_ = std::make_unique<PopulationPlot>(model(), *ui_->plotPopulations);
  followRun();
}

MainWindow::~MainWindow() {
  // The view draws and the lists change while they go; nobody who is gone may hear of it.
  model().disconnect(this);
  ui_->listSelectPixelType->disconnect(this);
  ui_->listPaintType->disconnect(this);
}

GraphicalLatticeModelGL& MainWindow::model() { return *ui_->myGraphicalLatticeModel; }

void MainWindow::keepRoomOfHiddenControls() {
  for (QWidget* widget : std::initializer_list<QWidget*>{
           ui_->labelMasqueradeType, ui_->listMasqueradeType, ui_->colorMasqueradeType,
           ui_->checkSelectedRuleIgnoreEnergy, ui_->colorSelectedRulePixelA, ui_->colorSelectedRulePixelB,
           ui_->labelSelectedRuleFacNum, ui_->listSelectedRuleFacNum, ui_->labelSelectedRuleFacPixel,
           ui_->listSelectedRuleFacPixel, ui_->colorSelectedRuleFacPixel, ui_->colorNewRulePixelA,
           ui_->colorNewRulePixelB}) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
  }
}

void MainWindow::acceptPrintableNamesOnly() {
  // A document holds nothing else, and a save must not fail on a name typed here.
  auto* printable = new QRegularExpressionValidator(QRegularExpression("[ -~]*"), this);
  for (QLineEdit* field :
       {ui_->textPixelName, ui_->textSelectedRuleName, static_cast<QLineEdit*>(ui_->textNewRuleName)})
    field->setValidator(printable);
}

void MainWindow::followRun() {
  ui_->statusLine->follow(model());
  connect(&model(), &GraphicalLatticeModelGL::frameDrawn, this, [this] { plot_->record(); });
  connect(&model(), &GraphicalLatticeModelGL::fullScreenLeft, ui_->statusLine, &StatusLine::refresh);
  const auto showTypes = [this] {
    plot_->showTypes(ui_->listSelectPixelType->currentIndex(), ui_->listPaintType->currentIndex());
  };
  connect(ui_->listSelectPixelType, &QComboBox::currentIndexChanged, this, showTypes);
  connect(ui_->listPaintType, &QComboBox::currentIndexChanged, this, showTypes);
}

}  // namespace quorvane
