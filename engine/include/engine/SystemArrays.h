#pragma once

#include <cstdint>

#include "engine/f_LMlattice.h"

namespace quorvane {

/// The arrays that determine an attempt: the arguments of fModelCycle with these names.
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

/// References to a lattice and its rules in the object that owns them.
struct SystemArrays {
  const Relaxed<std::int32_t>& imax;
  const Relaxed<std::int32_t>& jmax;
  const Relaxed<std::int32_t>& numTypes;
  Lattice& lattice;
  RuleArrays rules;
};

}  // namespace quorvane
