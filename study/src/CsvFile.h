#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "batch/RowWriter.h"

namespace quorvane {

/// A table that is written cell by cell and replaces its former file at the end. Throws BatchFailure.
class CsvFile {
 public:
  explicit CsvFile(const std::filesystem::path& target) : writer_(target) {}

  CsvFile& operator<<(std::string_view text);
  CsvFile& operator<<(const std::string& text) { return *this << std::string_view(text); }
  CsvFile& operator<<(const char* text) { return *this << std::string_view(text); }
  CsvFile& operator<<(std::int64_t number);
  CsvFile& operator<<(double number);

  void endRow();
  void finish();

 private:
  void comma();

  RowWriter writer_;
  std::string buffer_;
  bool inRow_ = false;
};

}  // namespace quorvane
