#pragma once

#include <QProcess>
#include <QWidget>

#include "GuiSupport.h"

namespace quorvane::gui {

/// Raises a window like the desktop's keys do. A window manager may refuse the same request from a program
/// while another window fills the screen.
inline bool switchTo(QWidget& window) {
  QProcess::execute("xdotool", {"windowactivate", QString::number(window.winId())});
  return waitUntil([&window] { return window.isActiveWindow(); });
}

}  // namespace quorvane::gui
