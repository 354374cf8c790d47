#pragma once

#include <QProcess>
#include <QWidget>

#include "GuiSupport.h"

namespace quorvane::gui {

/// Brings a window to the front as the user does with the keys of the desktop. A window manager may refuse
/// the same wish of a program while another window fills the screen.
inline bool switchTo(QWidget& window) {
  QProcess::execute("xdotool", {"windowactivate", QString::number(window.winId())});
  return waitUntil([&window] { return window.isActiveWindow(); });
}

}  // namespace quorvane::gui
