#include "DocumentParser.h"

#include "document/DocumentFile.h"
#include "document/LineParsers.h"

namespace quorvane {
namespace {

/// Names a value for messages, which are made only when something is wrong.
struct Field {
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
  Field expected;
};

struct Range {
  int lowest, highest;
};

std::string atLine(int line, const std::string& what) { return "line " + std::to_string(line) + ": " + what; }

/// The text of a line as it can stand in a message.
std::string quoted(std::string_view line) {
  constexpr std::size_t longest = 40;
  std::string text = "\"";
  for (const char c : line.substr(0, longest)) text.push_back(c >= ' ' && c <= '~' ? c : '?');
  return text + (line.size() > longest ? "...\"" : "\"");
}

/// Hands out the values of a text line by line.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : rest_(text) {}

  std::string_view line(const Field& field) {
    if (atEnd_) throw EndOfText{lineNumber_, field};
    ++lineNumber_;
    const auto end = rest_.find('\n');
    atEnd_ = end == std::string_view::npos;
    const std::string_view line = rest_.substr(0, end);
    if (!atEnd_) rest_.remove_prefix(end + 1);
    return line;
  }
  std::string_view name(const Field& field) {
    const std::string_view text = line(field);
    if (text.size() > kMaxNameLength)
      refuse(lineNumber_, field.text() + " must have " + std::to_string(kMaxNameLength) +
                              " characters at most, not " + std::to_string(text.size()));
    return text;
  }
  int whole(const Field& field) { return fileReadINTFromLine(line(field)); }
  double real(const Field& field) { return fileReadDBLFromLine(line(field)); }
  int wholeWithin(Range range, const Field& field) {
    const std::string_view text = line(field);
    const int value = fileReadINTFromLine(text);
    if (value < range.lowest || value > range.highest)
      refuse(lineNumber_, field.text() + " must be " + std::to_string(range.lowest) + " to " +
                              std::to_string(range.highest) + ", not " + quoted(text));
    return value;
  }

  /// Of the line handed out last, counted from 1.
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
  Parser(std::string_view text, const RowLengths& rows) : in_(text), rows_(rows) {}

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
  Range types() const { return {0, numTypes() - 1}; }
  Range typesOrNone() const { return {-1, numTypes() - 1}; }

  void parseHeader() {
    DocumentHeader header;
    header.imax = in_.wholeWithin({1, kMaxSide}, {"number of sites across"});
    header.jmax = in_.wholeWithin({1, kMaxSide}, {"number of sites upwards"});
    header.numTypes = in_.wholeWithin({1, kMaxPixelTypes}, {"number of pixel types"});
    result_.header = header;
  }

  void parseLattice() {
    const auto [imax, jmax, numTypes] = *result_.header;
    result_.sites.reserve(static_cast<std::size_t>(imax) * static_cast<std::size_t>(jmax));
    for (int i = 0; i < imax; ++i)
      for (int j = 0; j < jmax; ++j)
        result_.sites.push_back(in_.wholeWithin(types(), {"pixel type", "site", i, j}));
  }

  void parsePixelType(int t) {
    PixelTypeBlock& block = result_.types.emplace_back();
    const auto field = [t](const char* name) { return Field{name, "pixel type", t}; };
    const auto keep = [&block](auto& member, const auto& value) {
      member = value;
      ++block.numLines;
    };
    keep(block.name, in_.name(field("name")));
    keep(block.immobile, in_.whole(field("immobile flag")));
    keep(block.masquerade, in_.wholeWithin(typesOrNone(), field("masquerade")));
    keep(block.red, in_.real(field("red")));
    keep(block.green, in_.real(field("green")));
    keep(block.blue, in_.real(field("blue")));
    keep(block.persistence, in_.real(field("persistence")));
    keep(block.alpha, in_.real(field("transparency")));
    keep(block.field, in_.real(field("field")));
  }

  void parseRule(int r) {
    RuleBlock rule;
    const auto field = [r](const char* name) { return Field{name, "rule", r}; };
    rule.name = in_.name(field("name"));
    rule.disabled = in_.whole(field("disabled flag"));
    rule.ignoreEnergy = in_.whole(field("ignore-energy flag"));
    rule.type = in_.whole(field("type"));
    const int lineOfType = in_.lineNumber();
    rule.endA = in_.wholeWithin(typesOrNone(), field("end point A"));
    rule.endB = in_.wholeWithin(typesOrNone(), field("end point B"));
    rule.param = in_.real(field("parameter"));
    rule.facNum = in_.whole(field("facilitation number"));
    rule.facPixel = in_.wholeWithin(typesOrNone(), field("facilitation type"));
    enterRows(rule, r, lineOfType);
    result_.rules.push_back(std::move(rule));
  }

  /// Counts the places that LatticeModel::makeNewRule will need.
  void enterRows(const RuleBlock& rule, int r, int line) {
    const bool flipsBothWays = rule.type == kReversibleFlip;
    if (rule.type == kIrreversibleFlip || rule.type == kSwap || flipsBothWays)
      enterRowsOf(rule.endA, r, line);
    if (flipsBothWays) enterRowsOf(rule.endB, r, line);
  }
  void enterRowsOf(int end, int r, int line) {
    for (int t = 0; t < numTypes(); ++t) {
      if (end != kAnyPixelType && end != t) continue;
      if (++rows_[static_cast<std::size_t>(t)] > kMaxRules)
        in_.refuse(line, "rule " + std::to_string(r) + " does not fit: pixel type " + std::to_string(t) +
                             " has " + std::to_string(kMaxRules) +
                             " rules already, a reversible flip counting once for each of its ends");
    }
  }

  LineReader in_;
  RowLengths rows_;
  ParsedDocument result_;
};

}  // namespace

ParsedDocument parseDocument(std::string_view text, const RowLengths& rows) {
  return Parser(text, rows).parse();
}

}  // namespace quorvane
