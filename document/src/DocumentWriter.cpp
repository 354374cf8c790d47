#include <algorithm>
#include <charconv>
#include <new>
#include <variant>

#include "Ascii.h"
#include "DocumentFields.h"
#include "document/AtomicFile.h"
#include "document/DocumentFile.h"
#include "document/ModelDocument.h"
#include "document/PartialFiles.h"

namespace quorvane {
namespace {

/// Appends values to a text, each on its own line.
class LineWriter {
 public:
  explicit LineWriter(std::size_t expectedSize) { text_.reserve(expectedSize); }

  void line(const SharedName& name) { text_.append(name.text()).push_back('\n'); }
  void line(int value) {
    char digits[16];
    endLine(digits, std::to_chars(std::begin(digits), std::end(digits), value).ptr);
  }
  void line(double value) {
    // The largest double has 309 digits before the point.
    char digits[352];
    constexpr int decimals = 10;
    endLine(
        digits,
        std::to_chars(std::begin(digits), std::end(digits), value, std::chars_format::fixed, decimals).ptr);
  }

  std::string take() { return std::move(text_); }

 private:
  void endLine(char* begin, char* end) {
    text_.append(begin, end);
    text_.push_back('\n');
  }

  std::string text_;
};

void writeLattice(LineWriter& out, const LatticeModel& model, int imax, int jmax) {
  for (int i = 0; i < imax; ++i)
    for (int j = 0; j < jmax; ++j) out.line(model.getSiteValue(i, j));
}

template <class Block, class... Kinds, std::size_t numFields>
void writeBlock(LineWriter& out, const Block& block,
                const DocumentField<Block, Kinds...> (&fields)[numFields]) {
  for (const auto& field : fields)
    std::visit([&](const auto member) { out.line(block.*member); }, field.member);
}

std::string lineAt(std::string_view text, std::size_t position) {
  const auto line = 1 + std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(position), '\n');
  return " (line " + std::to_string(line) + " of the document)";
}

/// The start of the first line that is too long for a name; npos if there is none. Lines with numbers are
/// shorter.
std::size_t findLongLine(std::string_view text) {
  for (std::size_t start = 0, end; start < text.size(); start = end + 1) {
    end = std::min(text.find('\n', start), text.size());
    if (end - start > kMaxNameLength) return start;
  }
  return std::string_view::npos;
}

/// Why the document could not be opened again; empty if it can.
std::string whyNotReadable(std::string_view text) {
  if (const auto position = findNonAscii(text); position != std::string_view::npos)
    return "a name has a character outside ASCII" + lineAt(text, position);
  if (const auto position = findLongLine(text); position != std::string_view::npos)
    return "a name has more than " + std::to_string(kMaxNameLength) + " characters" + lineAt(text, position);
  return {};
}

SaveResult save(std::string_view text, const std::filesystem::path& path) {
  if (const std::string why = whyNotReadable(text); !why.empty()) return {.saved = false, .reason = why};
  const Written written = writeFileAtomically(path, text, waitNever);
  if (written.error)
    return {.saved = false, .reason = written.error.message() + whereLeft(written), .error = written.error};
  sweepPartialFiles(path);
  return {.saved = true, .note = written.inPlace ? kNoteInPlace : ""};
}

}  // namespace

std::string writeDocument(const LatticeModel& model) {
  constexpr std::size_t sizeOfBlocks = 8192;
  const int imax = model.getIMax(), jmax = model.getJMax();
  LineWriter out(static_cast<std::size_t>(imax * jmax * 2) + sizeOfBlocks);
  writeBlock(out, {.imax = imax, .jmax = jmax, .numTypes = model.getNumPixelTypes()}, kHeaderFields);
  writeLattice(out, model, imax, jmax);
  for (int t = 0; t < model.getNumPixelTypes(); ++t)
    writeBlock(out, pixelTypeBlock(model, t), kPixelTypeFields);
  out.line(model.getNumRules());
  for (int r = 0; r < model.getNumRules(); ++r) writeBlock(out, ruleBlock(model, r), kRuleFields);
  return out.take();
}

SaveResult saveDocument(const LatticeModel& model, const std::filesystem::path& path) {
  try {
    return save(writeDocument(model), path);
  } catch (const std::bad_alloc&) {
    return {.saved = false, .reason = kOutOfMemory};
  }
}

SaveResult saveDocument(std::string_view text, const std::filesystem::path& path) {
  try {
    return save(text, path);
  } catch (const std::bad_alloc&) {
    return {.saved = false, .reason = kOutOfMemory};
  }
}

}  // namespace quorvane
