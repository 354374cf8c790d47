#include "app/MainWindow.h"

#include <QEvent>

#include "AccessibleFactory.h"
#include "AccessibleRun.h"
#include "FontFit.h"
#include "ScreenFit.h"
#include "ScrollingPanels.h"
#include "WheelNeedsFocus.h"
#include "app/FullScreenNote.h"
#include "app/PrintableText.h"
#include "ui_MainWindow.h"

namespace quorvane {

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent), ui_(std::make_unique<Ui::MainWindow>()) {
  installAccessibleFactory();
  ui_->setupUi(this);
  new WheelNeedsFocus(*this);
  ui_->sliderSimulationSpeed->showValue();
  keepRoomOfHiddenControls();
  panels_ = std::make_unique<ScrollingPanels>(*ui_);
  fontFit_ = std::make_unique<FontFit>(*this, *ui_, *panels_);
  fontFit_->fit();
  screenFit_ = std::make_unique<ScreenFit>(*this);
  keepSmallestSize();
  connect(panels_.get(), &ScrollingPanels::smallestSizeChanged, this, &MainWindow::keepSmallestSize);
  ui_->textNewRuleName->setValidator(newPrintableValidator(this));
  controller_ = std::make_unique<MainViewController>(this, ui_.get());
  controller_->awakeFromNib();
  plot_ = std::make_unique<PopulationPlot>(model(), *ui_->plotPopulations);
  followRun();
  new FullScreenNote(model());
  addContextMenus();
  new AccessibleRun(*ui_, *plot_, this);
}

MainWindow::~MainWindow() {
  // The view draws and the lists change during destruction; receivers that are destroyed must not be called.
  model().disconnect(this);
  ui_->listSelectPixelType->disconnect(this);
  ui_->listPaintType->disconnect(this);
}

GraphicalLatticeModelGL& MainWindow::model() { return *ui_->myGraphicalLatticeModel; }

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::FontChange || !screenFit_) return;
  fontFit_->fit();
  keepSmallestSize();
}

void MainWindow::keepSmallestSize() { screenFit_->setSmallestSize(panels_->smallestSize()); }

void MainWindow::keepRoomOfHiddenControls() {
  // Except for the wells of a rule's ends, whose names use the space of a hidden well.
  for (QWidget* widget : std::initializer_list<QWidget*>{
           ui_->labelMasqueradeType, ui_->listMasqueradeType, ui_->colorMasqueradeType,
           ui_->checkSelectedRuleIgnoreEnergy, ui_->labelSelectedRuleFacNum, ui_->listSelectedRuleFacNum,
           ui_->labelSelectedRuleFacPixel, ui_->listSelectedRuleFacPixel, ui_->colorSelectedRuleFacPixel}) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
  }
}

void MainWindow::followRun() {
  ui_->statusLine->follow(model());
  // Assistive technology presses a button without mouse or key events.
  for (const QAbstractButton* button : findChildren<QAbstractButton*>())
    connect(button, &QAbstractButton::pressed, ui_->statusLine, &StatusLine::clearMessage);
  connect(&model(), &GraphicalLatticeModelGL::frameDrawn, this, [this] { plot_->record(); });
  // Points of the former lattice do not belong to this one.
  connect(&model(), &GraphicalLatticeModelGL::latticeRenewed, this, [this] { plot_->startAnew(); });
  connect(&model(), &GraphicalLatticeModelGL::fullScreenLeft, ui_->statusLine, &StatusLine::refresh);
  // Lists are refilled when a name changes, so the index passes through -1.
  for (const QComboBox* list : {ui_->listSelectPixelType, ui_->listPaintType})
    connect(list, &QComboBox::currentIndexChanged, this, &MainWindow::showPlottedTypes);
}

void MainWindow::addContextMenus() {
  latticeMenu_ = std::make_unique<LatticeMenu>(*this, model());
  connect(latticeMenu_.get(), &LatticeMenu::sweepMade, this, [this] {
    plot_->addPoint();
    ui_->statusLine->clearMessage();
  });
  plotMenu_ = std::make_unique<PlotMenu>(*ui_->plotPopulations, *plot_);
  connect(latticeMenu_.get(), &LatticeMenu::told, ui_->statusLine, &StatusLine::showMessage);
  connect(plotMenu_.get(), &PlotMenu::told, ui_->statusLine, &StatusLine::showMessage);
}

void MainWindow::showPlottedTypes() {
  const int red = ui_->listSelectPixelType->currentIndex(), green = ui_->listPaintType->currentIndex();
  plot_->showTypes(red, green);
  // Markers of equal value hide each other, and a second legend of the same name would not say so.
  ui_->labelPlotGreen->setText(red == green ? tr("the same type") : ui_->listPaintType->currentText());
}

}  // namespace quorvane
