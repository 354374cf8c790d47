#pragma once

#include <QStringList>

#include "app/MainWindow.h"

namespace quorvane {

/// All differences between the controls and the model, and all values of the model outside its limits, one
/// line each; empty if there are none. Not during a stroke or while a popup or panel is open.
QStringList disagreements(MainWindow& window);

}  // namespace quorvane
