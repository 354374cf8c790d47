#include "MeasuredTable.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "Process.h"

namespace quorvane::validation {
namespace {

std::vector<std::string> cellsOf(const std::string& line) {
  std::vector<std::string> cells;
  std::istringstream stream(line);
  for (std::string cell; std::getline(stream, cell, ',');) cells.push_back(cell);
  return cells;
}

std::vector<double> numbersOf(const std::string& line) {
  std::vector<double> numbers;
  for (const char* rest = line.c_str(); *rest != '\0';) {
    char* end = nullptr;
    numbers.push_back(std::strtod(rest, &end));
    if (end == rest) throw std::runtime_error("not a number: " + line);
    rest = *end == ',' ? end + 1 : end;
  }
  return numbers;
}

}  // namespace

MeasuredTable::MeasuredTable(std::vector<std::string> options) {
  // Standard output, since a file would be synchronised to the disk.
  options.insert(options.begin(), {QUORVANE_ISING_DOCUMENT, "--measure", "-"});
  const Finished finished = run(QUORVANE_BATCH, options);
  if (finished.status != 0) throw std::runtime_error(finished.err);
  std::istringstream lines(finished.out);
  std::string line;
  std::getline(lines, line);
  columns_ = cellsOf(line);
  while (std::getline(lines, line)) rows_.push_back(numbersOf(line));
}

std::size_t MeasuredTable::indexOf(const std::string& column) const {
  const auto found = std::find(columns_.begin(), columns_.end(), column);
  if (found == columns_.end()) throw std::runtime_error("there is no column " + column);
  return static_cast<std::size_t>(found - columns_.begin());
}

}  // namespace quorvane::validation
