// Prints random lattices and what is measured on them, for compare_with_numpy: for each lattice a line of its
// sizes and number of types, lines of its sites at the start, at a moment later and at the end, of its pair
// energies and of its fields, the columns, and the row at the end.

#include <cstdio>

#include "MeasureSupport.h"

namespace quorvane {
namespace {

void print(const char* name, const Snapshot& lattice) {
  std::printf("%s", name);
  for (const int site : lattice.sites) std::printf(" %d", site);
  std::printf("\n");
}

/// A lattice some of whose sites have changed.
Snapshot later(Snapshot lattice, unsigned seed) {
  const Snapshot other = randomLattice(lattice.imax, lattice.jmax, lattice.numTypes, seed);
  const Snapshot which = randomLattice(lattice.imax, lattice.jmax, 3, seed + 1);
  for (std::size_t k = 0; k < lattice.sites.size(); ++k)
    if (which.sites[k] == 0) lattice.sites[k] = other.sites[k];
  return lattice;
}

void measure(const Snapshot& start) {
  const Snapshot middle = later(start, 71), end = later(middle, 83);
  std::printf("lattice %d %d %d\n", start.imax, start.jmax, start.numTypes);
  print("start", start);
  print("middle", middle);
  print("end", end);
  std::printf("pairs");
  for (const auto& row : start.pairEnergies)
    for (const double energy : row) std::printf(" %.17g", energy);
  std::printf("\nfields");
  for (const double energy : start.fields) std::printf(" %.17g", energy);
  std::string list = "counts,energy,contacts,clusters,kept,correlation,structure";
  if (start.numTypes > 1) list += ",order:1:0";
  Measurements measurements(list, start);
  measurements.measure(middle);
  std::printf("\n%s%s", measurements.csvHeader().c_str(), measurements.csvRow(100, end).c_str());
}

}  // namespace
}  // namespace quorvane

int main() {
  for (const auto& lattice : quorvane::randomLattices()) quorvane::measure(lattice);
  for (const int numTypes : {2, 3, 10}) quorvane::measure(quorvane::randomLattice(254, 256, numTypes, 5));
  // So few sites of type 1 that some sizes of clusters are rare, and so many that a cluster goes round.
  for (const unsigned share : {1U, 3U, 4U, 5U, 8U}) {
    quorvane::Snapshot lattice = quorvane::randomLattice(61, 47, 10, share);
    for (auto& site : lattice.sites) site = site < share ? 1 : 0;
    lattice.numTypes = 2;
    lattice.names.resize(2);
    quorvane::measure(lattice);
  }
}
