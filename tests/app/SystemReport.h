#pragma once

#include <QStringList>

#include "app/MainWindow.h"

namespace quorvane {

/// The state that a document does not store but opening must restore, one value per line, reals without loss:
/// both tables of pair energies, the rows of rules, the trace of each type and its maximum; then the items of
/// the lists and the selected ones.
QStringList reportSystem(MainWindow& window);

}  // namespace quorvane
