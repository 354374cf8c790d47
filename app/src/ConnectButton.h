#pragma once

#include <QObject>
#include <QPushButton>

namespace quorvane {

/// Connects a button to a handler. A press by mnemonic arrives a tenth of a second late, so the handler is
/// skipped if the button is disabled by then.
template <class Controller>
void connectButton(const QPushButton* button, Controller* controller, void (Controller::*handler)()) {
  QObject::connect(button, &QPushButton::clicked, controller, [button, controller, handler] {
    if (button->isEnabled()) (controller->*handler)();
  });
}

}  // namespace quorvane
