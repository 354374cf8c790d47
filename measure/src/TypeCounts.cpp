#include "TypeCounts.h"

#include "CountEqual.h"

namespace quorvane {

std::vector<std::int64_t> countsOf(const Snapshot& snapshot) {
  std::vector<std::int64_t> counts;
  counts.reserve(static_cast<std::size_t>(snapshot.numTypes));
  for (int t = 0; t < snapshot.numTypes; ++t)
    counts.push_back(countEqual(snapshot.sites.data(), snapshot.sites.size(), static_cast<std::uint8_t>(t)));
  return counts;
}

bool areComplementary(const std::vector<std::int64_t>& counts, const Snapshot& snapshot) {
  return counts.size() == 2 && counts[0] + counts[1] == snapshot.numSites();
}

std::string columnOf(const char* quantity, int type) {
  return std::string(quantity) + "_" + std::to_string(type);
}

}  // namespace quorvane
