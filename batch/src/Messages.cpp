#include "batch/Messages.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <new>
#include <system_error>

#include "batch/Streams.h"
#include "document/ModelDocument.h"

namespace quorvane {
namespace {

std::string escaped(unsigned char c) {
  constexpr const char* digits = "0123456789abcdef";
  if (c == '\n') return "\\n";
  if (c == '\t') return "\\t";
  if (c == '\r') return "\\r";
  return std::string("\\x") + digits[c >> 4] + digits[c & 15];
}

/// The length in bytes of the printable UTF-8 character at the start of the text; 0 if there is none.
/// Excludes the C1 controls (U+0080 to U+009F), which some terminals obey, overlong forms, surrogates and
/// code points above U+10FFFF.
std::size_t printableAt(std::string_view text) {
  const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
  const unsigned char first = byte(0);
  if (first < 0x80) return first >= ' ' && first != 0x7f ? 1 : 0;
  const std::size_t length = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
  if (first < 0xc2 || first > 0xf4 || text.size() < length) return 0;
  char32_t character = first & (0x7f >> length);
  for (std::size_t k = 1; k < length; ++k) {
    if ((byte(k) & 0xc0) != 0x80) return 0;
    character = character << 6 | (byte(k) & 0x3f);
  }
  constexpr char32_t lowest[] = {0, 0, 0xa0, 0x800, 0x10000};
  const bool surrogate = character >= 0xd800 && character <= 0xdfff;
  return character < lowest[length] || surrogate || character > 0x10ffff ? 0 : length;
}

}  // namespace

std::string onOneLine(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const std::size_t printable = printableAt(text);
    if (printable == 0)
      result += escaped(static_cast<unsigned char>(text[0]));
    else
      result += text.substr(0, printable);
    text.remove_prefix(std::max<std::size_t>(printable, 1));
  }
  return result;
}

std::string inQuotes(std::string_view text) {
  std::string marked;
  for (const char c : text) {
    if (c == '"' || c == '\\') marked.push_back('\\');
    marked.push_back(c);
  }
  return '"' + onOneLine(marked) + '"';
}

std::string nameOf(const std::filesystem::path& file) {
  return isStandardStream(file) ? kStandardOutput : inQuotes(file.native());
}

std::string lineOf(const std::exception& error, const std::string& what) {
  if (dynamic_cast<const BatchFailure*>(&error)) return error.what();
  if (dynamic_cast<const std::bad_alloc*>(&error)) return what + ": " + kOutOfMemory;
  if (const auto* system = dynamic_cast<const std::system_error*>(&error))
    return what + ": " + system->code().message();
  return what + ": " + error.what();
}

void Messages::note(const std::string& line) {
  // The line may show progress.
  constexpr const char* eraseLine = "\r\033[K";
  if (&err_ == &std::cerr && ::isatty(STDERR_FILENO) == 1) err_ << eraseLine;
  err_ << program_ << ": " << line << std::endl;
}

void Messages::fail(const std::string& line) {
  failed_ = true;
  note(line);
}

}  // namespace quorvane
