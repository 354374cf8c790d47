#include "PrintedDocument.h"

#include <cstdio>

namespace quorvane {
namespace {

class PrintedLines {
 public:
  PrintedLines& operator<<(const std::string& name) {
    text_ += name + '\n';
    return *this;
  }
  PrintedLines& operator<<(int value) { return *this << std::to_string(value); }
  PrintedLines& operator<<(double value) {
    char digits[352];
    std::snprintf(digits, sizeof digits, "%.10f", value);
    return *this << std::string(digits);
  }

  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace

std::string printedDocument(const ParsedDocument& document) {
  PrintedLines out;
  out << document.header->imax << document.header->jmax << document.header->numTypes;
  for (const int site : document.sites) out << site;
  for (const PixelTypeBlock& type : document.types)
    out << type.name.text() << type.immobile << type.masquerade << type.red << type.green << type.blue
        << type.persistence << type.alpha << type.field;
  out << static_cast<int>(document.rules.size());
  for (const RuleBlock& rule : document.rules)
    out << rule.name.text() << rule.disabled << rule.ignoreEnergy << rule.type << rule.endA << rule.endB
        << rule.param << rule.facNum << rule.facPixel;
  return out.text();
}

}  // namespace quorvane
