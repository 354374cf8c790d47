#pragma once

#include <cstdint>
#include <memory>

#include "engine/f_LMlattice.h"

namespace quorvane {

/// The arrays that say what happens to a site: the arguments of fModelCycle with these names.
struct RuleArrays {
  const PerRuleInt& ruleType;
  const PerRuleInt& ruleDisabled;
  const PerRuleInt& ruleIgnoreEnergy;
  const PerRuleIntPair& ruleEndPoints;
  const PerRuleReal& ruleParameter;
  const PerRuleIntPair& ruleFac;
  const RuleRows& accessible;
  const PerTypeInt& accessibleCount;
  const PerTypeInt& immobile;
  const PerTypeReal& field;
  const PerTypeInt& masquerade;
  const PairEnergies& J;
};

/// A lattice and its rules, where they stand.
struct SystemArrays {
  const Relaxed<std::int32_t>& imax;
  const Relaxed<std::int32_t>& jmax;
  const Relaxed<std::int32_t>& numTypes;
  Lattice& lattice;
  RuleArrays rules;
};

/// Many attempts in a row, with the result of one call of fModelCycle each to the last bit, and several times
/// as fast where there are more than a few.
///
/// Reads the size, rules, energies and flags at least once in 4096 attempts and keeps them in the form that
/// an attempt needs; a change that another thread makes meanwhile takes effect by then, usually within a
/// tenth of a millisecond. Sites and the state are read as they stand. Any number of sweepers may work on one
/// system; each belongs to one thread.
class Sweeper {
 public:
  explicit Sweeper(const SystemArrays& system);
  ~Sweeper();

  /// imax * jmax + 1 attempts, one more than there are sites, left early when the state is another than the
  /// given one. Draws for each attempt fRandInt(imax), fRandInt(jmax) and those of fModelCycle.
  void sweep(const Relaxed<std::int32_t>& state, std::int32_t whileState);

 private:
  struct Notes;

  std::int64_t batch(std::int64_t count, const Relaxed<std::int32_t>& state, std::int32_t whileState);

  SystemArrays system_;
  std::unique_ptr<Notes> notes_;
};

}  // namespace quorvane
