#pragma once

#include <QString>

class QWidget;

/// Modal questions and answers of one line, shown as it stands: a file may be named like a piece of rich
/// text.
namespace quorvane {

void warn(QWidget* parent, const QString& title, const QString& line);

/// True if the user says yes; no is what Return says.
bool confirm(QWidget* parent, const QString& title, const QString& question);

}  // namespace quorvane
