#pragma once

#include <utility>
#include <vector>

#include "Configurations.h"

namespace quorvane::validation {

/// The probability that one attempt at a random site leads from one configuration to another, for every pair
/// of configurations of a small lattice, computed from the rules as documented.
class TransitionMatrix {
 public:
  /// The configurations that can follow, each once, with their probabilities.
  using Row = std::vector<std::pair<int, double>>;

  explicit TransitionMatrix(const System& system);

  int count() const { return static_cast<int>(rows_.size()); }
  const Row& from(int configuration) const { return rows_[static_cast<std::size_t>(configuration)]; }
  double probability(int from, int to) const;

  /// For each configuration, whether it can be reached from the given one.
  std::vector<bool> reachableFrom(int configuration) const;
  /// The stationary distribution that is reached from the given configuration.
  std::vector<double> stationaryFrom(int configuration) const;

 private:
  std::vector<Row> rows_;
};

/// The rules in the row of a type, as makeNewRule enters them.
std::vector<Rule> rowOf(const System& system, int type);

}  // namespace quorvane::validation
