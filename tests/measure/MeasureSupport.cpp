#include "MeasureSupport.h"

#include <random>
#include <stdexcept>

namespace quorvane {

NamedRow::NamedRow(const std::string& list, const Snapshot& snapshot) {
  Measurements measurements(list, snapshot);
  *this = NamedRow(measurements.columns(), measurements.measure(snapshot));
}

NamedRow::NamedRow(const std::vector<std::string>& columns, const Row& row) {
  if (columns.size() != row.values().size()) throw std::logic_error("a row does not have its columns");
  for (std::size_t k = 0; k < columns.size(); ++k)
    if (!values_.emplace(columns[k], row.values()[k]).second)
      throw std::logic_error("column " + columns[k] + " is there twice");
}

std::int64_t NamedRow::number(const std::string& column) const {
  return std::get<std::int64_t>(values_.at(column));
}

double NamedRow::real(const std::string& column) const { return std::get<double>(values_.at(column)); }

Snapshot emptyLattice(int imax, int jmax, int numTypes) {
  Snapshot lattice;
  lattice.imax = imax;
  lattice.jmax = jmax;
  lattice.numTypes = numTypes;
  lattice.sites.resize(static_cast<std::size_t>(lattice.numSites()));
  for (int t = 0; t < numTypes; ++t) lattice.names.push_back("type " + std::to_string(t));
  return lattice;
}

Snapshot latticeOf(const std::vector<std::string>& columns, int numTypes) {
  Snapshot lattice =
      emptyLattice(static_cast<int>(columns.size()), static_cast<int>(columns[0].size()), numTypes);
  for (int i = 0; i < lattice.imax; ++i)
    for (int j = 0; j < lattice.jmax; ++j)
      setType(lattice, i, j, columns[static_cast<std::size_t>(i)].at(static_cast<std::size_t>(j)) - '0');
  return lattice;
}

Snapshot randomLattice(int imax, int jmax, int numTypes, unsigned seed) {
  Snapshot lattice = emptyLattice(imax, jmax, numTypes);
  std::mt19937 source(seed);
  for (auto& site : lattice.sites)
    site = static_cast<std::uint8_t>(source() % static_cast<unsigned>(numTypes));
  const auto energy = [&] { return static_cast<double>(source()) / 4294967296.0 * 4.0 - 2.0; };
  for (std::size_t a = 0; a < kMaxPixelTypes; ++a) {
    lattice.fields[a] = energy();
    for (std::size_t b = a; b < kMaxPixelTypes; ++b)
      lattice.pairEnergies[a][b] = lattice.pairEnergies[b][a] = energy();
  }
  return lattice;
}

std::vector<Snapshot> randomLattices() {
  constexpr int sizes[][2] = {{1, 1}, {1, 2}, {2, 1},  {1, 3},   {3, 1},   {1, 8},   {9, 1},  {2, 2}, {2, 3},
                              {3, 2}, {2, 9}, {7, 2},  {3, 3},   {4, 4},   {5, 3},   {4, 6},  {6, 5}, {7, 7},
                              {8, 8}, {9, 4}, {3, 12}, {12, 16}, {16, 16}, {17, 33}, {33, 17}};
  std::vector<Snapshot> lattices;
  unsigned seed = 1;
  for (const auto& size : sizes)
    for (const int numTypes : {1, 2, 2, 3, 10})
      lattices.push_back(randomLattice(size[0], size[1], numTypes, seed++));
  return lattices;
}

std::string describe(const Snapshot& lattice) {
  return std::to_string(lattice.imax) + " x " + std::to_string(lattice.jmax) + " sites, " +
         std::to_string(lattice.numTypes) + " types";
}

}  // namespace quorvane
