#pragma once

#include <vector>

#include "System.h"

namespace quorvane::validation {

/// The pixel type of every site of a small lattice; (i, j) is at i * jmax + j.
using Configuration = std::vector<int>;

struct Site {
  int i, j;
};

/// All configurations of a small lattice, numbered from 0.
class Configurations {
 public:
  explicit Configurations(const System& system);

  int count() const { return count_; }
  int numberOf(const Configuration& configuration) const;
  int numberOf(const LatticeModel& model) const;
  Configuration at(int number) const;
  void write(int number, LatticeModel& model) const;

 private:
  int imax_, jmax_, types_;
  int count_ = 1;
};

/// The neighbouring site in direction dir, 1 to 8.
Site neighbourOf(const System& system, Site site, int dir);
int at(const System& system, const Configuration& configuration, Site site);

/// The energy H of a configuration, for symmetric pair energies: J/2 for every bond of two sites, the fields,
/// and for a site that is its own neighbour J/2 for each direction that leads back to it.
double effectiveEnergy(const System& system, const Configuration& configuration);

}  // namespace quorvane::validation
