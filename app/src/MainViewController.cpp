#include "app/MainViewController.h"

#include "TypedNames.h"

namespace quorvane {

MainViewController::MainViewController(QMainWindow* myWindow, Ui::MainWindow* ui)
    : ui_(*ui),
      rules_(*ui),
      pixelTypes_(*ui, rules_),
      run_(*ui, pixelTypes_, rules_),
      documents_(*myWindow, *ui, run_) {
  connect(&run_, &RunController::systemStarted, this, &MainViewController::systemStarted);
  connect(&documents_, &DocumentController::systemStarted, this, &MainViewController::systemStarted);
  connect(&documents_, &DocumentController::systemSaved, this, &MainViewController::systemSaved);
}

void MainViewController::commitTypedNames() { quorvane::commitTypedNames(ui_); }

}  // namespace quorvane
