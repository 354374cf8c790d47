#pragma once

#include <utility>
#include <vector>

#include "Configurations.h"

namespace quorvane::validation {

/// The probability that one attempt at a random site leads from one configuration to another, for every pair
/// of configurations of a small lattice, worked out from the rules as they are documented.
class TransitionMatrix {
 public:
  /// Probabilities of the configurations that can follow, without repetition.
  using Row = std::vector<std::pair<int, double>>;

  explicit TransitionMatrix(const System& system);

  int count() const { return static_cast<int>(rows_.size()); }
  const Row& from(int configuration) const { return rows_[static_cast<std::size_t>(configuration)]; }
  double probability(int from, int to) const;

  /// For each configuration, whether attempts can lead there from the given one.
  std::vector<bool> reachableFrom(int configuration) const;
  /// The distribution that attempts lead to from the given configuration and then leave as it is.
  std::vector<double> stationaryFrom(int configuration) const;

 private:
  std::vector<Row> rows_;
};

/// The rules that stand in the row of a type, as makeNewRule enters them.
std::vector<Rule> rowOf(const System& system, int type);

}  // namespace quorvane::validation
