#include <algorithm>

#include "Bonds.h"
#include "measure/Registry.h"

namespace quorvane {
namespace {

using PerType = std::array<std::int64_t, kMaxPixelTypes>;

/// The sites of every type, in use or not: each has four bonds, and each bond has two ends.
PerType sitesOfAllTypes(const Bonds& bonds) {
  PerType ends = {};
  for (std::size_t a = 0; a < ends.size(); ++a)
    for (std::size_t b = a; b < ends.size(); ++b) {
      ends[a] += bonds.between[a][b];
      ends[b] += bonds.between[a][b];
    }
  constexpr std::int64_t endsPerSite = 8;
  for (auto& count : ends) count /= endsPerSite;
  return ends;
}

/// 0 for nothing, also where the energy is infinite.
double energyOf(std::int64_t number, double energy) {
  return number == 0 ? 0.0 : static_cast<double>(number) * energy;
}

double latticeEnergy(const Snapshot& snapshot) {
  const Bonds bonds = bondsOf(snapshot);
  const PerType sites = sitesOfAllTypes(bonds);
  double pairs = 0.0, fields = 0.0;
  for (std::size_t a = 0; a < sites.size(); ++a) {
    for (std::size_t b = a; b < sites.size(); ++b) {
      // A flip changes both ends of a bond from a site to itself.
      const std::int64_t again = a == b ? bonds.toItself * sites[a] : 0;
      pairs += energyOf(bonds.between[a][b] + again, snapshot.pairEnergies[a][b]);
    }
    fields += energyOf(sites[a], snapshot.fields[a]);
  }
  return pairs / 2.0 + fields;
}

class Energy : public Observable {
 public:
  std::vector<std::string> columns() const override { return {"energy"}; }
  void measure(const Snapshot& snapshot, Row& row) override { row.add(latticeEnergy(snapshot)); }
};

std::unique_ptr<Observable> makeEnergy(const Snapshot& /*first*/, std::span<const int> /*types*/) {
  return std::make_unique<Energy>();
}

}  // namespace

extern const ObservableKind kEnergy;
constexpr ObservableKind kEnergy{
    .name = "energy",
    .arguments = "",
    .columns = "energy",
    .definition =
        "E = 1/2 * (sum over all pairs of neighbours of J(a, b)) + sum over all sites of h(a), in "
        "kT, each pair once, computed from the integer contacts; its change is the dE of a flip or "
        "swap. On a lattice of side 1 the pair of a site with itself counts J, not J/2. Disabled "
        "pair energies count as 0.",
    .paper = "",
    .cost = "N",
    .make = makeEnergy,
};

}  // namespace quorvane
