#pragma once

#include <QMainWindow>
#include <memory>

#include "app/LatticeMenu.h"
#include "app/MainViewController.h"
#include "app/PlotMenu.h"
#include "app/PopulationPlot.h"

namespace quorvane {

class FontFit;

/// The application's only window, with its controls, its model and its controller. Closing it ends every run.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit MainWindow(QWidget* parent = nullptr);
  ~MainWindow() override;

  GraphicalLatticeModelGL& model();
  MainViewController& controller() { return *controller_; }
  const PopulationPlot& plot() const { return *plot_; }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void keepRoomOfHiddenControls();
  void followRun();
  void addContextMenus();
  void showPlottedTypes();

  HeldSpaceBar heldSpaceBar_;
  std::unique_ptr<Ui::MainWindow> ui_;
  std::unique_ptr<FontFit> fontFit_;
  std::unique_ptr<MainViewController> controller_;
  std::unique_ptr<PopulationPlot> plot_;
  std::unique_ptr<LatticeMenu> latticeMenu_;
  std::unique_ptr<PlotMenu> plotMenu_;
};

}  // namespace quorvane
