#include "DocumentParser.h"

#include <variant>

#include "DocumentFields.h"
#include "document/DocumentFile.h"
#include "document/LineParsers.h"

namespace quorvane {
namespace {

/// The name of a value for messages, formatted only for an error.
struct FieldName {
  const char* name;
  const char* owner = nullptr;
  int index = 0;
  int jIndex = -1;  ///< of a site

  std::string text() const {
    std::string text = name;
    if (!owner) return text;
    text.append(" of ").append(owner).append(" ");
    if (jIndex < 0) return text + std::to_string(index);
    return text + "(" + std::to_string(index) + ", " + std::to_string(jIndex) + ")";
  }
};

struct EndOfText {
  int lastLine;
  FieldName expected;
};

std::string atLine(int line, const std::string& what) { return "line " + std::to_string(line) + ": " + what; }

/// The text of a line, made printable for a message.
std::string quoted(std::string_view line) {
  constexpr std::size_t longest = 40;
  std::string text = "\"";
  for (const char c : line.substr(0, longest)) text.push_back(c >= ' ' && c <= '~' ? c : '?');
  return text + (line.size() > longest ? "...\"" : "\"");
}

/// Returns the values of a text line by line.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : rest_(text) {}

  std::string_view line(const FieldName& field) {
    if (atEnd_) throw EndOfText{lineNumber_, field};
    ++lineNumber_;
    const auto end = rest_.find('\n');
    atEnd_ = end == std::string_view::npos;
    const std::string_view line = rest_.substr(0, end);
    if (!atEnd_) rest_.remove_prefix(end + 1);
    return line;
  }
  std::string_view name(const FieldName& field) {
    const std::string_view text = line(field);
    if (text.size() > kMaxNameLength)
      refuse(lineNumber_, field.text() + " must have " + std::to_string(kMaxNameLength) +
                              " characters at most, not " + std::to_string(text.size()));
    return text;
  }
  int whole(const FieldName& field) { return fileReadINTFromLine(line(field)); }
  double real(const FieldName& field) { return fileReadDBLFromLine(line(field)); }
  int wholeWithin(FieldLimits limits, const FieldName& field) {
    const std::string_view text = line(field);
    const int value = fileReadINTFromLine(text);
    if (value < limits.lowest || value > limits.highest)
      refuse(lineNumber_, field.text() + " must be " + std::to_string(limits.lowest) + " to " +
                              std::to_string(limits.highest) + ", not " + quoted(text));
    return value;
  }

  /// The number of the line returned last, counted from 1.
  int lineNumber() const { return lineNumber_; }

  [[noreturn]] static void refuse(int line, const std::string& what) {
    throw DocumentRefused(atLine(line, what));
  }

 private:
  std::string_view rest_;
  bool atEnd_ = false;
  int lineNumber_ = 0;
};

class Parser {
 public:
  Parser(std::string_view text, const RowCounts& rows) : in_(text), rows_(rows) {}

  ParsedDocument parse() {
    try {
      parseHeader();
      parseLattice();
      for (int t = 0; t < numTypes(); ++t) parsePixelType(t);
      const int numRules = in_.wholeWithin({0, kMaxRules}, {"number of rules"});
      for (int r = 0; r < numRules; ++r) parseRule(r);
    } catch (const EndOfText& end) {
      result_.cutShort = atLine(end.lastLine, "the document ends before the " + end.expected.text());
    }
    return std::move(result_);
  }

 private:
  int numTypes() const { return result_.header->numTypes; }

  void parseHeader() {
    DocumentHeader header;
    for (const auto& field : kHeaderFields) parseField(header, field, {field.name});
    result_.header = header;
  }

  void parseLattice() {
    const auto [imax, jmax, numTypes] = *result_.header;
    result_.sites.reserve(static_cast<std::size_t>(imax) * static_cast<std::size_t>(jmax));
    for (int i = 0; i < imax; ++i)
      for (int j = 0; j < jmax; ++j)
        result_.sites.push_back(in_.wholeWithin({0, numTypes - 1}, {"pixel type", "site", i, j}));
  }

  void parsePixelType(int t) {
    PixelTypeBlock& block = result_.types.emplace_back();
    for (const auto& field : kPixelTypeFields) {
      parseField(block, field, {field.name, "pixel type", t});
      ++block.numLines;
    }
  }

  void parseRule(int r) {
    const int lineOfType = in_.lineNumber() + lineOf(kRuleFields, &RuleBlock::type);
    RuleBlock rule;
    for (const auto& field : kRuleFields) parseField(rule, field, {field.name, "rule", r});
    enterRows(rule, r, lineOfType);
    result_.rules.push_back(std::move(rule));
  }

  template <class Block, class... Kinds>
  void parseField(Block& block, const DocumentField<Block, Kinds...>& field, const FieldName& name) {
    std::visit([&](const auto member) { parseValue(block.*member, field.limits, name); }, field.member);
  }
  void parseValue(SharedName& value, const std::optional<FieldLimits>&, const FieldName& field) {
    value = std::string(in_.name(field));
  }
  void parseValue(double& value, const std::optional<FieldLimits>&, const FieldName& field) {
    value = in_.real(field);
  }
  void parseValue(int& value, const std::optional<FieldLimits>& limits, const FieldName& field) {
    if (!limits) {
      value = in_.whole(field);
      return;
    }
    const int highest = limits->highest == kLastType ? numTypes() - 1 : limits->highest;
    value = in_.wholeWithin({limits->lowest, highest}, field);
  }

  void enterRows(const RuleBlock& rule, int r, int line) {
    const RowCounts entries = rowEntries(rule.type, rule.endA, rule.endB, numTypes());
    for (std::size_t t = 0; t < rows_.size(); ++t) {
      rows_[t] += entries[t];
      if (rows_[t] > kMaxRules)
        in_.refuse(line, "rule " + std::to_string(r) + " does not fit: pixel type " + std::to_string(t) +
                             " has " + std::to_string(kMaxRules) +
                             " rules already, a reversible flip counting once for each of its ends");
    }
  }

  LineReader in_;
  RowCounts rows_;
  ParsedDocument result_;
};

}  // namespace

ParsedDocument parseDocument(std::string_view text, const RowCounts& rows) {
  return Parser(text, rows).parse();
}

}  // namespace quorvane
