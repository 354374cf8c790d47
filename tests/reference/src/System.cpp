#include "reference/System.h"

#include <iterator>

#include "engine/f_ran0.h"
#include "reference/Assign.h"
#include "reference/LatticeFunctions.h"
#include "reference/Ran0.h"

namespace quorvane::reference {
namespace {

EnteredRows enteredRows(int type) {
  const bool known = type >= 0 && type < static_cast<int>(std::size(kEnteredRows));
  return known ? kEnteredRows[type] : EnteredRows{};
}

template <class Int, class Real>
void enterRows(SystemOf<Int, Real>& system, int rule, int end) {
  for (int t = 0; t < 10; ++t) {
    if (end == -1 ? t >= system.numTypes : t != end) continue;
    const int count = system.accessibleCount[t];
    system.accessible[t][count] = rule;
    system.accessibleCount[t] = count + 1;
  }
}

void leaveRow(System& system, int rule, int type) {
  int& count = system.accessibleCount[type];
  int position = 0;
  while (position < count && system.accessible[type][position] != rule) ++position;
  if (position == count) return;
  for (; position < count - 1; ++position)
    system.accessible[type][position] = system.accessible[type][position + 1];
  system.accessible[type][count - 1] = -1;
  --count;
}

void leaveRows(System& system, int rule, int end) {
  if (end != -1)
    leaveRow(system, rule, end);
  else
    for (int t = 0; t < system.numTypes; ++t) leaveRow(system, rule, t);
}

void renumberRows(System& system, int rule) {
  for (int t = 0; t < system.numTypes; ++t)
    for (int position = 0; position < system.accessibleCount[t]; ++position)
      if (system.accessible[t][position] > rule) {
        --system.accessible[t][position];
        break;
      }
}

}  // namespace

void copyTo(EngineSystem& to, const System& from) {
  to.imax = from.imax;
  to.jmax = from.jmax;
  to.numTypes = from.numTypes;
  to.numRules = from.numRules;
  assign(to.lattice, from.lattice);
  assign(to.ruleType, from.ruleType);
  assign(to.ruleDisabled, from.ruleDisabled);
  assign(to.ruleIgnoreEnergy, from.ruleIgnoreEnergy);
  assign(to.ruleEndPoints, from.ruleEndPoints);
  assign(to.ruleParameter, from.ruleParameter);
  assign(to.ruleFac, from.ruleFac);
  assign(to.accessible, from.accessible);
  assign(to.accessibleCount, from.accessibleCount);
  assign(to.immobile, from.immobile);
  assign(to.field, from.field);
  assign(to.masquerade, from.masquerade);
  assign(to.J, from.J);
}

std::unique_ptr<EngineSystem> toEngine(const System& from) {
  auto to = std::make_unique<EngineSystem>();
  copyTo(*to, from);
  return to;
}

SystemArrays arraysOf(EngineSystem& s) {
  return {s.imax,
          s.jmax,
          s.numTypes,
          s.lattice,
          {s.ruleType, s.ruleDisabled, s.ruleIgnoreEnergy, s.ruleEndPoints, s.ruleParameter, s.ruleFac,
           s.accessible, s.accessibleCount, s.immobile, s.field, s.masquerade, s.J}};
}

template <class Int, class Real>
int addRule(SystemOf<Int, Real>& system, int type, int endA, int endB) {
  constexpr int capacity = 50;
  if (system.numRules >= capacity) return -1;
  // A rule adds at most two entries to a row.
  for (const auto& count : system.accessibleCount)
    if (count + 2 > capacity) return -1;
  const int r = system.numRules++;
  system.ruleType[r] = type;
  system.ruleEndPoints[r][0] = endA;
  system.ruleEndPoints[r][1] = endB;
  system.ruleParameter[r] = 1.0;
  system.ruleFac[r][0] = system.ruleFac[r][1] = 0;
  system.ruleDisabled[r] = system.ruleIgnoreEnergy[r] = 0;
  const EnteredRows entered = enteredRows(type);
  if (entered.ofA) enterRows(system, r, endA);
  if (entered.ofB) enterRows(system, r, endB);
  return r;
}

template int addRule(System&, int, int, int);
template int addRule(EngineSystem&, int, int, int);

void deleteRule(System& system, int rule) {
  const int type = system.ruleType[rule];
  const int endA = system.ruleEndPoints[rule][0];
  const int endB = system.ruleEndPoints[rule][1];
  const int last = system.numRules - 1;
  for (int k = rule + 1; k <= last; ++k) {
    system.ruleType[k - 1] = system.ruleType[k];
    assign(system.ruleEndPoints[k - 1], system.ruleEndPoints[k]);
    system.ruleParameter[k - 1] = system.ruleParameter[k];
    assign(system.ruleFac[k - 1], system.ruleFac[k]);
  }
  system.ruleType[last] = -1;
  system.ruleEndPoints[last][0] = system.ruleEndPoints[last][1] = -1;
  system.ruleParameter[last] = 0.0;
  system.ruleFac[last][0] = system.ruleFac[last][1] = 0;
  system.numRules = last;
  const EnteredRows entered = enteredRows(type);
  if (entered.ofA) leaveRows(system, rule, endA);
  if (entered.ofB) leaveRows(system, rule, endB);
  if (entered.ofA || entered.ofB) renumberRows(system, rule);
}

void attemptAt(System& s, int i, int j) {
  fModelCycle(i, j, s.imax, s.jmax, s.lattice, s.numTypes, s.numRules, s.ruleType, s.ruleDisabled,
              s.ruleIgnoreEnergy, s.ruleEndPoints, s.ruleParameter, s.ruleFac, s.accessible,
              s.accessibleCount, s.immobile, s.field, s.masquerade, s.J);
}

void attemptAt(EngineSystem& s, int i, int j) {
  quorvane::fModelCycle(i, j, s.imax, s.jmax, s.lattice, s.numTypes, s.numRules, s.ruleType, s.ruleDisabled,
                        s.ruleIgnoreEnergy, s.ruleEndPoints, s.ruleParameter, s.ruleFac, s.accessible,
                        s.accessibleCount, s.immobile, s.field, s.masquerade, s.J);
}

Attempted attempt(System& system) {
  const int i = fRandInt(system.imax) - 1;
  const int j = fRandInt(system.jmax) - 1;
  attemptAt(system, i, j);
  return {i, j};
}

Attempted attempt(EngineSystem& system) {
  const int i = quorvane::fRandInt(system.imax) - 1;
  const int j = quorvane::fRandInt(system.jmax) - 1;
  attemptAt(system, i, j);
  return {i, j};
}

}  // namespace quorvane::reference
