#include "app/PrintableText.h"

#include <QRegularExpressionValidator>

namespace quorvane {

QString printableText(const std::string& text) {
  QString printable;
  for (const char c : text)
    if (c >= ' ' && c <= '~') printable += QLatin1Char(c);
  return printable;
}

QValidator* newPrintableValidator(QObject* parent) {
  return new QRegularExpressionValidator(QRegularExpression("[ -~]*"), parent);
}

}  // namespace quorvane
