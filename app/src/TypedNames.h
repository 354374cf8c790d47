#pragma once

namespace Ui {
class MainWindow;
}

namespace quorvane {

/// Applies typed names that are not in the model yet. A field applies its name when it loses the focus, but
/// on some desktops clicking a button does not move the focus.
void commitTypedNames(const Ui::MainWindow& ui);

}  // namespace quorvane
