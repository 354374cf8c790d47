#include "TypedNames.h"

#include "ui_MainWindow.h"

namespace quorvane {

void commitTypedNames(const Ui::MainWindow& ui) {
  ui.textSelectedRuleName->commit();
  ui.textPixelName->commit();
}

}  // namespace quorvane
