#pragma once

#include <cstdint>
#include <memory>

#include "engine/Sweeper.h"

namespace quorvane::reference {

/// Everything that the functions on a lattice are handed. About 270 kilobytes: make it on the heap.
template <class Int, class Real>
struct SystemOf {
  Int imax = 1, jmax = 1;
  Int numTypes = 1;
  int numRules = 0;
  Int lattice[256][256] = {};
  Int ruleType[50] = {};
  Int ruleDisabled[50] = {};
  Int ruleIgnoreEnergy[50] = {};
  Int ruleEndPoints[50][2] = {};
  Real ruleParameter[50] = {};
  Int ruleFac[50][2] = {};
  Int accessible[10][50] = {};
  Int accessibleCount[10] = {};
  Int immobile[10] = {};
  Real field[10] = {};
  Int masquerade[10] = {-1, -1, -1, -1, -1, -1, -1, -1, -1, -1};
  Real J[10][10] = {};
};

/// A system of plain arrays, for the functions of this folder.
using System = SystemOf<int, double>;
/// A system for the functions of the engine.
using EngineSystem = SystemOf<Relaxed<std::int32_t>, Relaxed<double>>;

/// Gives a system for the engine the values of a plain one.
void copyTo(EngineSystem& to, const System& from);

/// A system for the engine with the values of a plain one.
std::unique_ptr<EngineSystem> toEngine(const System& system);

/// The arrays of a system for a Sweeper.
SystemArrays arraysOf(EngineSystem& system);

/// Appends a rule that has the given ends, parameter 1 and nothing else, and enters it into the rows: types 0
/// and 2 into end A's, type 1 into end A's and end B's, an end of -1 meaning every type in use. Returns its
/// index, or -1 without effect if it does not fit.
template <class Int, class Real>
int addRule(SystemOf<Int, Real>& system, int type, int endA, int endB);

/// Deletes a rule: later rules move down without their two flags, the rows lose one occurrence for each end,
/// and of each row only the first later entry is renumbered.
void deleteRule(System& system, int rule);

/// One attempt at a random site: draws i, then j, then what fModelCycle draws.
struct Attempted {
  int i, j;
};
Attempted attempt(System& system);
Attempted attempt(EngineSystem& system);

/// One attempt at the given site.
void attemptAt(System& system, int i, int j);
void attemptAt(EngineSystem& system, int i, int j);

extern template int addRule(System&, int, int, int);
extern template int addRule(EngineSystem&, int, int, int);

}  // namespace quorvane::reference
