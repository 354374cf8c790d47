#pragma once

#include <cstdint>
#include <memory>

#include "engine/Sweeper.h"

namespace quorvane::reference {

/// All arguments of the lattice functions. About 270 kilobytes: allocate it on the heap.
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

/// A system of plain arrays, for the reference functions.
using System = SystemOf<int, double>;
/// A system for the engine.
using EngineSystem = SystemOf<Relaxed<std::int32_t>, Relaxed<double>>;

/// Copies the values of a plain system into one for the engine.
void copyTo(EngineSystem& to, const System& from);

/// A copy of a plain system for the engine.
std::unique_ptr<EngineSystem> toEngine(const System& system);

/// The arrays of a system for a Sweeper.
SystemArrays arraysOf(EngineSystem& system);

/// The ends whose rows a rule enters.
struct EnteredRows {
  bool ofA, ofB;
};
/// By the type of the rule: irreversible flip, reversible flip, swap, pair energy. A rule of another type
/// enters none.
inline constexpr EnteredRows kEnteredRows[] = {{true, false}, {true, true}, {true, false}, {false, false}};

/// Appends a rule with the given ends, parameter 1 and all else 0, and enters it into its rows; an end of -1
/// means every type in use. Returns its index, or -1 without effect if it does not fit.
template <class Int, class Real>
int addRule(SystemOf<Int, Real>& system, int type, int endA, int endB);

/// Deletes a rule: later rules move down without their two flags, each row loses one occurrence per end, and
/// only the first later entry of each row is renumbered.
void deleteRule(System& system, int rule);

/// One attempt at a random site: draws i, then j, then the draws of fModelCycle.
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
