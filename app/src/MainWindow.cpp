#include "app/MainWindow.h"

#include <QEvent>
#include <QRegularExpressionValidator>

#include "AccessibleFactory.h"
#include "AccessibleRun.h"
#include "FontFit.h"
#include "WheelNeedsFocus.h"
#include "ui_MainWindow.h"

namespace quorvane {

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent), ui_(std::make_unique<Ui::MainWindow>()) {
  installAccessibleFactory();
  ui_->setupUi(this);
  new WheelNeedsFocus(*this);
  ui_->sliderSimulationSpeed->showValue();
  keepRoomOfHiddenControls();
  fontFit_ = std::make_unique<FontFit>(*this, *ui_);
  fontFit_->fit();
  acceptPrintableNamesOnly();
  controller_ = std::make_unique<MainViewController>(this, ui_.get());
  controller_->awakeFromNib();
  plot_ = std::make_unique<PopulationPlot>(model(), *ui_->plotPopulations);
  followRun();
  new AccessibleRun(*ui_, *plot_, this);
}

MainWindow::~MainWindow() {
  // The view draws and the lists change while they go; nobody who is gone may hear of it.
  model().disconnect(this);
  ui_->listSelectPixelType->disconnect(this);
  ui_->listPaintType->disconnect(this);
}

GraphicalLatticeModelGL& MainWindow::model() { return *ui_->myGraphicalLatticeModel; }

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::FontChange && fontFit_) fontFit_->fit();
}

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
  // Lists are filled anew when a name changes, so the index goes through -1.
  for (const QComboBox* list : {ui_->listSelectPixelType, ui_->listPaintType})
    connect(list, &QComboBox::currentIndexChanged, this, &MainWindow::showPlottedTypes);
}

void MainWindow::showPlottedTypes() {
  const int red = ui_->listSelectPixelType->currentIndex(), green = ui_->listPaintType->currentIndex();
  plot_->showTypes(red, green);
  // Equal squares cover each other, and a second legend of the same name would hide that.
  ui_->labelPlotGreen->setText(red == green ? tr("the same type") : ui_->listPaintType->currentText());
}

}  // namespace quorvane
