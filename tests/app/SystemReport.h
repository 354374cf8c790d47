#pragma once

#include <QStringList>

#include "app/MainWindow.h"

namespace quorvane {

/// What a document does not hold but its opening has to bring back, one fact a line, reals without loss: both
/// tables of pair energies, the rows of rules, the trace of each type and its maximum; then the items of the
/// lists and the selected ones.
QStringList reportSystem(MainWindow& window);

}  // namespace quorvane
