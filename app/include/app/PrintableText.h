#pragma once

#include <QString>
#include <QValidator>
#include <string>

/// Names as the window shows and takes them: printable ASCII, blank to tilde. A document holds nothing else
/// that can be seen, and a save must not fail on a name typed here.
namespace quorvane {

/// The text without every other character, such as the carriage return that a document of another system
/// leaves behind each name.
QString printableText(const std::string& text);

/// Lets a field take nothing else.
QValidator* newPrintableValidator(QObject* parent);

}  // namespace quorvane
