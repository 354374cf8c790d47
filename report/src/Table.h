#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// A table of text (RFC 4180) with the names of its columns.
struct Table {
  std::vector<std::string> names;
  std::vector<std::vector<std::string>> rows;  ///< each as long as names

  /// The place of a column that exists.
  std::size_t column(std::string_view name) const;
};

/// Throws StudyError if a row has another number of cells than the first one.
Table tableIn(std::string_view text, const std::filesystem::path& file);
Table readTable(const std::filesystem::path& file);

/// The table as text.
std::string csvOf(const Table& table);

/// Some columns of a table.
Table columnsOf(const Table& table, const std::vector<std::size_t>& columns);

/// A cell as a number; nan if it is none.
double numberIn(const std::string& cell);

}  // namespace quorvane
