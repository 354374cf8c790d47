#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "measure/Measurements.h"

namespace quorvane {

/// The values of a row by their columns.
class NamedRow {
 public:
  /// What a list of observables measures on a lattice, which is also that of the start.
  NamedRow(const std::string& list, const Snapshot& snapshot);
  NamedRow(const std::vector<std::string>& columns, const Row& row);

  std::int64_t number(const std::string& column) const;
  double real(const std::string& column) const;
  std::size_t size() const { return values_.size(); }

 private:
  std::map<std::string, Value> values_;
};

/// A lattice whose columns i are given as texts of the digits of their types, j from left to right.
Snapshot latticeOf(const std::vector<std::string>& columns, int numTypes);

/// A lattice on which all sites hold type 0.
Snapshot emptyLattice(int imax, int jmax, int numTypes);

/// Independent sites, all types equally likely; random symmetric pair energies and fields.
Snapshot randomLattice(int imax, int jmax, int numTypes, unsigned seed);

/// Random lattices of all sizes that matter, from 1 x 1 to 33 x 17, with one to ten types.
std::vector<Snapshot> randomLattices();

inline std::size_t siteIndex(const Snapshot& lattice, int i, int j) {
  return static_cast<std::size_t>(i) * static_cast<std::size_t>(lattice.jmax) + static_cast<std::size_t>(j);
}

/// The type at a site whose coordinates may lie beyond the edges.
inline int typeAt(const Snapshot& lattice, int i, int j) {
  const auto wrap = [](int x, int n) { return (x % n + n) % n; };
  return lattice.sites[siteIndex(lattice, wrap(i, lattice.imax), wrap(j, lattice.jmax))];
}

inline void setType(Snapshot& lattice, int i, int j, int type) {
  lattice.sites[siteIndex(lattice, i, j)] = static_cast<std::uint8_t>(type);
}

/// "33 x 17 sites, 3 types", for messages.
std::string describe(const Snapshot& lattice);

}  // namespace quorvane
