#pragma once

#include <QMainWindow>
#include <memory>

#include "app/LatticeMenu.h"
#include "app/MainViewController.h"
#include "app/PlotMenu.h"
#include "app/PopulationPlot.h"
#include "view/GraphicalLatticeModelGL.h"

namespace quorvane {

class FontFit;
class ScreenFit;
class ScrollingPanels;

/// The application's only window, with its controls, model and controller. Closing it ends every run.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit MainWindow(QWidget* parent = nullptr);
  ~MainWindow() override;

  GraphicalLatticeModelGL& model();
  MainViewController& controller() { return *controller_; }
  const PopulationPlot& plot() const { return *plot_; }
  /// The size at which everything is visible, limited by the screen.
  QSize minimumSizeHint() const override { return minimumSize(); }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void keepSmallestSize();
  void keepRoomOfHiddenControls();
  void followRun();
  void addContextMenus();
  void showPlottedTypes();

  std::unique_ptr<Ui::MainWindow> ui_;
  std::unique_ptr<ScrollingPanels> panels_;
  std::unique_ptr<FontFit> fontFit_;
  std::unique_ptr<ScreenFit> screenFit_;
  std::unique_ptr<MainViewController> controller_;
  std::unique_ptr<PopulationPlot> plot_;
  std::unique_ptr<LatticeMenu> latticeMenu_;
  std::unique_ptr<PlotMenu> plotMenu_;
};

}  // namespace quorvane
