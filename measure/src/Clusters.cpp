#include <algorithm>

#include "ClusterFinder.h"
#include "TypeCounts.h"
#include "measure/Registry.h"

namespace quorvane {
namespace {

struct Sums {
  std::int64_t clusters = 0, sites = 0, squares = 0, largest = 0;
  bool closesAlongI = false, closesAlongJ = false;

  void add(const Cluster& cluster) {
    ++clusters;
    sites += cluster.sites;
    squares += cluster.sites * cluster.sites;
    largest = std::max(largest, cluster.sites);
    closesAlongI |= cluster.closesAlongI;
    closesAlongJ |= cluster.closesAlongJ;
  }
  int wraps() const { return (closesAlongI ? 1 : 0) + (closesAlongJ ? 2 : 0); }
};

class Clusters : public Observable {
 public:
  explicit Clusters(int numTypes) : numTypes_(numTypes) {}

  std::vector<std::string> columns() const override {
    std::vector<std::string> names;
    for (int t = 0; t < numTypes_; ++t)
      for (const char* quantity : {"clusters", "largest", "mean", "wraps"})
        names.push_back(columnOf(quantity, t));
    return names;
  }

  void measure(const Snapshot& snapshot, Row& row) override {
    std::array<Sums, kMaxPixelTypes> sums = {};
    for (const Cluster& cluster : finder_.clustersOf(snapshot))
      sums[static_cast<std::size_t>(cluster.type)].add(cluster);
    for (int t = 0; t < numTypes_; ++t) {
      const Sums& of = sums[static_cast<std::size_t>(t)];
      row.add(of.clusters);
      row.add(of.largest);
      row.add(ratio(of.squares, of.sites));
      row.add(of.wraps());
    }
  }

 private:
  int numTypes_;
  ClusterFinder finder_;
};

std::unique_ptr<Observable> makeClusters(const Snapshot& first, std::span<const int> /*types*/) {
  return std::make_unique<Clusters>(first.numTypes);
}

}  // namespace

extern const ObservableKind kClusters;
constexpr ObservableKind kClusters{
    .name = "clusters",
    .arguments = "",
    .columns = "clusters_t, largest_t, mean_t, wraps_t for each type t",
    .definition =
        "The number of clusters of sites of the type, connected by any of the eight neighbours; the "
        "sites of the largest; the mean (sum of s^2) / (sum of s) over the clusters of s sites, nan "
        "without sites; and 1 if a cluster closes around the lattice along i, 2 along j, 3 along "
        "both (also with one path that goes round both), else 0.",
    .paper =
        "D. Stauffer and A. Aharony, Introduction to Percolation Theory, 2nd ed. (1992), for the mean; "
        "J. Hoshen and R. Kopelman, Phys. Rev. B 14, 3438 (1976), for the labels; J. Machta et al., "
        "Phys. Rev. E 54, 1332 (1996), for what closes.",
    .cost = "N",
    .make = makeClusters,
};

}  // namespace quorvane
