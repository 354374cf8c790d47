#pragma once

#include <QString>
#include <QValidator>
#include <string>

/// Names as the window shows and accepts them: printable ASCII, from blank to tilde. Documents are ASCII, and
/// a save must not fail because of a typed name.
namespace quorvane {

/// The text without other characters, such as the carriage return that Windows line endings leave after each
/// name.
QString printableText(const std::string& text);

/// Restricts a field to such text.
QValidator* newPrintableValidator(QObject* parent);

}  // namespace quorvane
