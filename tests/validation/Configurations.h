#pragma once

#include <vector>

#include "System.h"

namespace quorvane::validation {

/// The pixel type of every site of a small lattice; (i, j) stands at i * jmax + j.
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
  int imax_, jmax_, types_, count_;
};

/// The site that one step in direction dir, 1 to 8, leads to.
Site neighbourOf(const System& system, Site site, int dir);
int at(const System& system, const Configuration& configuration, Site site);

/// The energy whose changes flips and swaps weigh where the pair energies of both orders are the same: half
/// of J for every bond, the whole of it for a bond of a site with itself counted half as often as directions
/// lead there, and the fields.
double effectiveEnergy(const System& system, const Configuration& configuration);

}  // namespace quorvane::validation
