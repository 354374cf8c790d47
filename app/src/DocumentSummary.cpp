#include "DocumentSummary.h"

#include <QColor>
#include <QCoreApplication>
#include <algorithm>

#include "app/PrintableText.h"

namespace quorvane {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("quorvane::DocumentSummary", text); }

/// A name as in the lists of the window.
QString titled(std::size_t index, const std::string& name) {
  return (QString::number(index) + " - " + printableText(name)).toHtmlEscaped();
}

QString heading(const QString& text) { return "<p style='margin:6px 0 2px 0'><b>" + text + "</b></p>"; }

/// None if the document ends before the colour.
QString swatch(const PixelTypeBlock& type) {
  if (type.numLines < PixelTypeBlock::kLinesToColor) return {};
  const auto component = [](double value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
  const QColor color = QColor::fromRgbF(component(type.red), component(type.green), component(type.blue));
  return "bgcolor='" + color.name() + "'";
}

QString rowsOfTypes(const std::vector<PixelTypeBlock>& types) {
  QString rows;
  for (std::size_t t = 0; t < types.size(); ++t)
    if (types[t].numLines > 0)
      rows += "<tr><td width='14' style='border:1px solid gray' " + swatch(types[t]) +
              "></td><td style='padding-left:5px'>" + titled(t, types[t].name.text()) + "</td></tr>";
  return "<table cellspacing='1' style='border-collapse:collapse'>" + rows + "</table>";
}

QString linesOfRules(const std::vector<RuleBlock>& rules) {
  QString lines;
  for (std::size_t r = 0; r < rules.size(); ++r) lines += titled(r, rules[r].name.text()) + "<br>";
  return lines;
}

}  // namespace

QString summaryOf(const ParsedDocument& document, const QString& message) {
  QString summary;
  if (!message.isEmpty()) summary += "<p>" + message.toHtmlEscaped() + "</p>";
  if (!document.header) return summary;
  const auto [imax, jmax, numTypes] = *document.header;
  summary += heading(tr("%1 × %2 sites").arg(imax).arg(jmax));
  summary += heading(tr("Pixel types: %1").arg(numTypes)) + rowsOfTypes(document.types);
  // Unknown if the document ends before the number.
  if (!document.cutShort || !document.rules.empty())
    summary += heading(tr("Rules: %1").arg(document.rules.size())) + linesOfRules(document.rules);
  return summary;
}

}  // namespace quorvane
