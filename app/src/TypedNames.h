#pragma once

namespace Ui {
class MainWindow;
}

namespace quorvane {

/// Hands over the names that were typed and not yet handed to the model. A field does so when it loses the
/// focus, but on some desktops a click on a button leaves the focus where it is.
void commitTypedNames(const Ui::MainWindow& ui);

}  // namespace quorvane
