#include "study/CsvText.h"

namespace quorvane {

void appendCsvCell(std::string& table, std::string_view cell) {
  if (cell.find_first_of(",\"\n\r") == std::string_view::npos) {
    table += cell;
    return;
  }
  table += '"';
  for (const char c : cell) {
    if (c == '"') table += '"';
    table += c;
  }
  table += '"';
}

}  // namespace quorvane
