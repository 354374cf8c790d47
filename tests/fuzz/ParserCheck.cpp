#include "ParserCheck.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "DocumentSupport.h"
#include "PrintedDocument.h"
#include "document/LineParsers.h"
#include "document/ParsedDocument.h"

namespace quorvane {
namespace {

using Text = std::string_view;

Inspection inspect(Text text) {
  static const auto model = freshModel();
  return inspectDocument(*model, text);
}

bool isPrintableLine(Text line) {
  return std::all_of(line.begin(), line.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

int numLines(Text text) { return 1 + static_cast<int>(std::count(text.begin(), text.end(), '\n')); }

/// The first lines of a text, without the last line feed.
Text firstLines(Text text, int count) {
  std::size_t end = 0;
  for (; count > 0; --count) {
    end = text.find('\n', end);
    if (end == Text::npos) return text;
    ++end;
  }
  return text.substr(0, end - 1);
}

/// N of "line N: ...", 0 if there is none.
int lineNamedIn(Text message) {
  constexpr Text start = "line ";
  int line = 0;
  if (!message.starts_with(start)) return 0;
  message.remove_prefix(start.size());
  const auto [end, error] = std::from_chars(message.data(), message.data() + message.size(), line);
  message.remove_prefix(static_cast<std::size_t>(end - message.data()));
  return error == std::errc{} && message.starts_with(": ") && message.size() > 2 ? line : 0;
}

std::string checkMessage(const OpenResult& result, Text text) {
  constexpr std::size_t longest = 200;
  const bool opened = result.status == OpenStatus::kOpened;
  if (opened != result.message.empty() || opened != result.reason.empty())
    return "status and message disagree";
  for (const std::string& line : {result.message, result.reason})
    if (!isPrintableLine(line) || line.size() > longest) return "no short printable line: " + line;
  if (opened) return {};
  if (result.status == OpenStatus::kUnreadable)
    return result.message == kLogNoLines ? "" : "unreadable, but " + result.message;
  if (result.message != result.reason) return "two messages: " + result.message + " and " + result.reason;
  const int line = lineNamedIn(result.message);
  return line >= 1 && line <= numLines(text) ? "" : "no line of the text is named: " + result.message;
}

std::string checkRefused(const Inspection& found, Text text) {
  if (found.document.header) return "a refused document left a header";
  if (found.result.status == OpenStatus::kUnreadable) return {};
  const int line = lineNamedIn(found.result.message);
  if (line > 1 && inspect(firstLines(text, line - 1)).result.status != OpenStatus::kCutShort)
    return "a line before the one named is wrong: " + found.result.message;
  // A rule that does not fit is detected at its last line, five after the line of its type.
  const Inspection alone = inspect(firstLines(text, line + 5));
  return alone.result.message == found.result.message ? "" : "lines below matter: " + found.result.message;
}

bool within(int value, int lowest, int highest) { return value >= lowest && value <= highest; }

std::string checkLimits(const ParsedDocument& document) {
  const auto [imax, jmax, numTypes] = *document.header;
  if (!within(imax, 1, kMaxSide) || !within(jmax, 1, kMaxSide) || !within(numTypes, 1, kMaxPixelTypes))
    return "the header is beyond the limits";
  for (const int site : document.sites)
    if (!within(site, 0, numTypes - 1)) return "a site is of no type";
  for (const PixelTypeBlock& type : document.types)
    if (!within(type.masquerade, -1, numTypes - 1)) return "a masquerade is no type";
  if (document.rules.size() > kMaxRules) return "too many rules";
  for (const RuleBlock& rule : document.rules)
    for (const int type : {rule.endA, rule.endB, rule.facPixel})
      if (!within(type, -1, numTypes - 1)) return "a rule names no type";
  return {};
}

/// Also for an incomplete document: its parts are complete up to the last one.
std::string checkParts(const ParsedDocument& document) {
  const auto [imax, jmax, numTypes] = *document.header;
  const bool whole = !document.cutShort;
  const std::size_t sites = static_cast<std::size_t>(imax) * static_cast<std::size_t>(jmax);
  if (document.sites.size() > sites || (whole && document.sites.size() < sites)) return "number of sites";
  const auto types = static_cast<std::size_t>(numTypes);
  if (document.types.size() > types || (whole && document.types.size() < types)) return "number of types";
  for (const PixelTypeBlock& type : document.types) {
    const bool mayLackLines = !whole && &type == &document.types.back() && document.rules.empty();
    if (!mayLackLines && type.numLines != PixelTypeBlock::kLines) return "a type lacks lines";
    if (type.name.text().find('\n') != std::string::npos) return "a name has a line feed";
  }
  if (!document.types.empty() && document.sites.size() < sites) return "types before all sites";
  if (!document.rules.empty() && document.types.size() < types) return "rules before all types";
  return checkLimits(document);
}

std::string checkOpened(const ParsedDocument& document, Text text) {
  // A number beyond the range of a double is printed as a word that reads as 0.
  const std::string printed = printedDocument(document);
  if (printed.find("\ninf\n") == Text::npos && printed.find("\n-inf\n") == Text::npos) {
    const Inspection again = inspect(printed);
    if (again.result.status != OpenStatus::kOpened) return "printed, it is refused: " + again.result.message;
    if (printedDocument(again.document) != printed) return "printed, it reads as another";
  }
  // Cut between two lines, at a position derived from the text.
  const int lines = numLines(printed);
  const int kept = 1 + static_cast<int>(std::hash<Text>{}(text) % static_cast<std::size_t>(lines - 1));
  const Inspection cut = inspect(firstLines(printed, kept));
  const bool wholeStill = kept == lines - 1;
  if (cut.result.status != (wholeStill ? OpenStatus::kOpened : OpenStatus::kCutShort))
    return "cut short, it is not told so";
  if (!wholeStill && lineNamedIn(cut.result.message) != kept) return "the end is told at the wrong line";
  return {};
}

int wholeByLibrary(const std::string& line) {
  errno = 0;
  const long long value = std::strtoll(line.c_str(), nullptr, 10);
  return static_cast<int>(static_cast<unsigned>(static_cast<unsigned long long>(value)));
}

double realByLibrary(std::string line) {
  // Only the C library reads hexadecimal digits and the words for infinity and NaN.
  if (const auto letter = line.find_first_of("xXiInN"); letter != std::string::npos) line.resize(letter);
  return std::strtod(line.c_str(), nullptr);
}

/// The first lines of a text, each as if it were a number.
std::string checkNumbers(Text text) {
  constexpr int enough = 64;
  for (int k = 0; k < enough && !text.empty(); ++k) {
    const std::string line(text.substr(0, text.find('\n')));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (fileReadINTFromLine(line) != wholeByLibrary(line)) return "whole number in line " + std::to_string(k);
    const double real = fileReadDBLFromLine(line), expected = realByLibrary(line);
    if (std::bit_cast<std::uint64_t>(real) != std::bit_cast<std::uint64_t>(expected))
      return "real number in line " + std::to_string(k) + ": " + std::to_string(real) + " for " +
             std::to_string(expected);
  }
  return {};
}

}  // namespace

std::string checkParser(Text text) {
  if (const std::string wrong = checkNumbers(text); !wrong.empty()) return wrong;
  const Inspection found = inspect(text);
  if (const std::string wrong = checkMessage(found.result, text); !wrong.empty()) return wrong;
  const OpenStatus status = found.result.status;
  if (status == OpenStatus::kRefused || status == OpenStatus::kUnreadable) return checkRefused(found, text);
  if (status == OpenStatus::kCutShort && lineNamedIn(found.result.message) != numLines(text))
    return "cut short elsewhere: " + found.result.message;
  if (!found.document.header) return status == OpenStatus::kOpened ? "opened without a header" : "";
  if (const std::string wrong = checkParts(found.document); !wrong.empty()) return wrong;
  return status == OpenStatus::kOpened ? checkOpened(found.document, text) : "";
}

}  // namespace quorvane
