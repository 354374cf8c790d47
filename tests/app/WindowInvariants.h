#pragma once

#include <QStringList>

#include "app/MainWindow.h"

namespace quorvane {

/// Everything in which the controls disagree with the model, or the model with its own limits, one line each;
/// empty if all is right. To be called while no stroke is going on and no popup or panel is open.
QStringList disagreements(MainWindow& window);

}  // namespace quorvane
