#pragma once

#include <exception>
#include <filesystem>
#include <iosfwd>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

/// Messages of the runner: lines on standard error.
namespace quorvane {

inline constexpr const char* kStandardInput = "standard input";
inline constexpr const char* kStandardOutput = "standard output";

/// The text in quotation marks, on one line: control characters, and bytes that are not UTF-8, as escapes.
std::string inQuotes(std::string_view text);

/// The same without the quotation marks, for text that may contain user input.
std::string onOneLine(std::string_view text);

/// A file as messages name it: quoted, or kStandardOutput for "-".
std::string nameOf(const std::filesystem::path& file);

/// A file that cannot be read or written, or whose content is invalid.
class BatchFailure : public std::runtime_error {
 public:
  /// file: as returned by nameOf.
  BatchFailure(const std::string& file, const std::string& why) : std::runtime_error(file + ": " + why) {}
};

/// One line with the file or result that failed and the reason. what: its name, unless the error includes it.
std::string lineOf(const std::exception& error, const std::string& what);

/// Prints failures and notes at once, a line each.
class Messages {
 public:
  /// program: the name that each line begins with.
  explicit Messages(std::ostream& err, std::string program = "quorvane-batch")
      : err_(err), program_(std::move(program)) {}

  void note(const std::string& line);
  void fail(const std::string& line);
  /// True once anything has failed.
  bool failed() const { return failed_; }

 private:
  std::ostream& err_;
  std::string program_;
  bool failed_ = false;
};

}  // namespace quorvane
