#pragma once

#include <exception>
#include <filesystem>
#include <iosfwd>
#include <stdexcept>
#include <string>
#include <string_view>

/// What the runner says to people: lines on standard error.
namespace quorvane {

inline constexpr const char* kStandardInput = "standard input";
inline constexpr const char* kStandardOutput = "standard output";

/// The text between quotation marks, on one line: control characters, and bytes that are no UTF-8, as
/// escapes.
std::string inQuotes(std::string_view text);

/// The same without the marks, for text that may hold something of a user.
std::string onOneLine(std::string_view text);

/// A file as messages name it: quoted, or kStandardOutput for "-".
std::string nameOf(const std::filesystem::path& file);

/// A file that cannot be read or written, or does not hold what it should.
class BatchFailure : public std::runtime_error {
 public:
  /// file: as nameOf gives it.
  BatchFailure(const std::string& file, const std::string& why) : std::runtime_error(file + ": " + why) {}
};

/// One line: what a failure is about, and why. what: named where the failure itself does not say it.
std::string lineOf(const std::exception& error, const std::string& what);

/// Tells failures and notes as they come, a line each.
class Messages {
 public:
  explicit Messages(std::ostream& err) : err_(err) {}

  void note(const std::string& line);
  void fail(const std::string& line);
  /// True once anything has failed.
  bool failed() const { return failed_; }

 private:
  std::ostream& err_;
  bool failed_ = false;
};

}  // namespace quorvane
