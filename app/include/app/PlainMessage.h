#pragma once

#include <QString>

class QWidget;

/// Modal one-line messages and questions in plain text: a file name may look like rich text.
namespace quorvane {

void warn(QWidget* parent, const QString& title, const QString& line);

/// True if the user answers yes; the default is no.
bool confirm(QWidget* parent, const QString& title, const QString& question);

}  // namespace quorvane
