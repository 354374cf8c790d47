#pragma once

#include <QObject>
#include <QPushButton>

namespace quorvane {

/// Calls a controller's handler when the button is pressed. A press by its mnemonic arrives a tenth of a
/// second late, and the button may be disabled by then.
template <class Controller>
void connectButton(const QPushButton* button, Controller* controller, void (Controller::*handler)()) {
  QObject::connect(button, &QPushButton::clicked, controller, [button, controller, handler] {
    if (button->isEnabled()) (controller->*handler)();
  });
}

}  // namespace quorvane
