#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// Appends a cell of a table: text with a comma, a quotation mark or the end of a line is quoted (RFC 4180).
void appendCsvCell(std::string& table, std::string_view cell);

}  // namespace quorvane
