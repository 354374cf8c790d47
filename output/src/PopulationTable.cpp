#include "output/PopulationTable.h"

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

}  // namespace

PopulationTable::PopulationTable(const LatticeModel& model)
    : numTypes_(static_cast<std::size_t>(model.getNumPixelTypes())), csv_("sweep") {
  for (int t = 0; t < model.getNumPixelTypes(); ++t) csv_ += ',' + quoted(model.getPixelName(t));
  csv_ += '\n';
}

void PopulationTable::addRow(const SiteCounts& counts, std::int64_t sweep) {
  csv_ += std::to_string(sweep);
  for (std::size_t t = 0; t < numTypes_; ++t) csv_ += ',' + std::to_string(counts[t]);
  csv_ += '\n';
}

}  // namespace quorvane
