#include "Table.h"

#include <algorithm>
#include <limits>

#include "batch/Messages.h"
#include "settings/Names.h"
#include "study/CsvText.h"
#include "study/StudyError.h"
#include "study/StudyFile.h"

namespace quorvane {
namespace {

/// Reads cell by cell.
class CellReader {
 public:
  explicit CellReader(std::string_view text) : text_(text) {}

  bool atEnd() const { return at_ == text_.size(); }

  std::vector<std::string> row() {
    std::vector<std::string> cells;
    do cells.push_back(cell());
    while (skip(','));
    skip('\n');
    return cells;
  }

 private:
  bool skip(char c) {
    if (atEnd() || text_[at_] != c) return false;
    ++at_;
    return true;
  }

  std::string cell() {
    if (skip('"')) return quoted();
    const std::size_t end = std::min(text_.find_first_of(",\n", at_), text_.size());
    std::string cell(text_.substr(at_, end - at_));
    at_ = end;
    return cell;
  }

  std::string quoted() {
    std::string cell;
    while (!atEnd()) {
      const char c = text_[at_++];
      // Two quotation marks stand for one, and a single one ends the cell.
      if (c == '"' && !skip('"')) break;
      cell += c;
    }
    return cell;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

void appendRow(std::string& text, const std::vector<std::string>& cells) {
  for (std::size_t k = 0; k < cells.size(); ++k) {
    if (k > 0) text += ',';
    appendCsvCell(text, cells[k]);
  }
  text += '\n';
}

}  // namespace

std::size_t Table::column(std::string_view name) const {
  return static_cast<std::size_t>(std::find(names.begin(), names.end(), name) - names.begin());
}

Table tableIn(std::string_view text, const std::filesystem::path& file) {
  CellReader reader(text);
  Table table{.names = reader.row(), .rows = {}};
  while (!reader.atEnd()) {
    table.rows.push_back(reader.row());
    if (table.rows.back().size() != table.names.size())
      throw StudyError(nameOf(file) + ": row " + std::to_string(table.rows.size()) + " has " +
                       std::to_string(table.rows.back().size()) + " cells and the first line has " +
                       std::to_string(table.names.size()));
  }
  return table;
}

Table readTable(const std::filesystem::path& file) { return tableIn(textOf(file), file); }

std::string csvOf(const Table& table) {
  std::string text;
  appendRow(text, table.names);
  for (const auto& row : table.rows) appendRow(text, row);
  return text;
}

Table columnsOf(const Table& table, const std::vector<std::size_t>& columns) {
  const auto chosen = [&](const std::vector<std::string>& cells) {
    std::vector<std::string> some;
    some.reserve(columns.size());
    for (const std::size_t column : columns) some.push_back(cells[column]);
    return some;
  };
  Table part{.names = chosen(table.names), .rows = {}};
  for (const auto& row : table.rows) part.rows.push_back(chosen(row));
  return part;
}

double numberIn(const std::string& cell) {
  try {
    return realIn(cell);
  } catch (const SettingError&) {
    return std::numeric_limits<double>::quiet_NaN();
  }
}

}  // namespace quorvane
