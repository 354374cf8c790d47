#include "output/PopulationTable.h"

#include <array>

namespace quorvane {
namespace {

std::string quoted(const std::string& text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"') result.push_back(c);
    result.push_back(c);
  }
  return result + '"';
}

std::array<int, kMaxPixelTypes> countSites(const LatticeModel& model) {
  std::array<int, kMaxPixelTypes> counts = {};
  for (int i = 0; i < model.getIMax(); ++i)
    for (int j = 0; j < model.getJMax(); ++j) ++counts[static_cast<std::size_t>(model.getSiteValue(i, j))];
  return counts;
}

}  // namespace

PopulationTable::PopulationTable(const LatticeModel& model) {
  csv_ = "sweep";
  for (int t = 0; t < model.getNumPixelTypes(); ++t) csv_ += ',' + quoted(model.getPixelName(t));
  csv_ += '\n';
}

void PopulationTable::addRow(const LatticeModel& model, std::int64_t sweep) {
  const auto counts = countSites(model);
  csv_ += std::to_string(sweep);
  for (int t = 0; t < model.getNumPixelTypes(); ++t)
    csv_ += ',' + std::to_string(counts[static_cast<std::size_t>(t)]);
  csv_ += '\n';
}

}  // namespace quorvane
