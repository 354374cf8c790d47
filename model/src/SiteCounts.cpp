#include "model/SiteCounts.h"

#include <numeric>

namespace quorvane {

SiteCounts countSites(const LatticeModel& model) {
  SiteCounts counts = {};
  const int imax = model.getIMax(), jmax = model.getJMax();
  for (int i = 0; i < imax; ++i)
    for (int j = 0; j < jmax; ++j) ++counts[static_cast<std::size_t>(model.getSiteValue(i, j))];
  return counts;
}

double shareOfSites(const SiteCounts& counts, int type) {
  if (type < 0 || type >= kMaxPixelTypes) return 0.0;
  const int all = std::accumulate(counts.begin(), counts.end(), 0);
  return all == 0 ? 0.0 : static_cast<double>(counts[static_cast<std::size_t>(type)]) / all;
}

}  // namespace quorvane
