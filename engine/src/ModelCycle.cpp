#include "Energy.h"
#include "engine/f_LMlattice.h"
#include "engine/f_ran0.h"

namespace quorvane {
namespace {

constexpr int kIrreversibleFlip = 0;
constexpr int kReversibleFlip = 1;
constexpr int kAnyType = -1;
constexpr int kNoRule = -1;

int drawType(int numTypes) { return fRandInt(numTypes) - 1; }

bool usable(int rule, const PerRuleInt& disabled) {
  return rule >= 0 && rule < kMaxRules && disabled[rule] == 0;
}

/// Draws positions of a row until one holds an enabled rule, or until every one has come up disabled.
int drawRule(const Relaxed<std::int32_t> (&row)[kMaxRules], int length, const PerRuleInt& disabled) {
  bool tried[kMaxRules] = {};
  for (int numTried = 0; numTried < length;) {
    const int position = fRandInt(length) - 1;
    const int rule = row[position];
    if (usable(rule, disabled)) return rule;
    if (!tried[position]) {
      tried[position] = true;
      ++numTried;
    }
  }
  return kNoRule;
}

/// The neighbours that count as the type: those that hold it and those whose type masquerades as it.
int countFacilitating(int facType, const Neighbours& neighbours, int numTypes, const PerTypeInt& masquerade) {
  int count = 0;
  for (const int type : neighbours.type) {
    count += type == facType ? 1 : 0;
    count += type < numTypes && masquerade[type] == facType ? 1 : 0;
  }
  return count;
}

}  // namespace

int fFigureOutFinalSiteType(int current, int endA, int endB, int numTypes) {
  if (endA == kAnyType && endB == kAnyType) return drawType(numTypes);
  const bool atAnEnd = current == endA || current == endB;
  if (endA == kAnyType) return atAnEnd ? drawType(numTypes) : endB;
  if (endB == kAnyType) return atAnEnd ? drawType(numTypes) : endA;
  return current == endA ? endB : endA;
}

void fModelCycle(int i, int j, int imax, int jmax, Lattice& lattice, int numTypes, int /*numRules*/,
                 const PerRuleInt& ruleType, const PerRuleInt& ruleDisabled,
                 const PerRuleInt& ruleIgnoreEnergy, const PerRuleIntPair& ruleEndPoints,
                 const PerRuleReal& ruleParameter, const PerRuleIntPair& ruleFac, const RuleRows& accessible,
                 const PerTypeInt& accessibleCount, const PerTypeInt& immobile, const PerTypeReal& field,
                 const PerTypeInt& masquerade, const PairEnergies& J) {
  const int current = lattice[i][j];
  const int r = drawRule(accessible[current], accessibleCount[current], ruleDisabled);
  if (r == kNoRule) return;

  const int kind = ruleType[r];
  const int endA = ruleEndPoints[r][0];
  const int endB = ruleEndPoints[r][1];
  const double parameter = ruleParameter[r];

  if (kind != kIrreversibleFlip && kind != kReversibleFlip) {
    const double u = fRandReal();
    if (parameter > u) fExchangeMove(i, j, imax, jmax, endB, lattice, immobile, J, ruleIgnoreEnergy[r]);
    return;
  }

  const int final = kind == kReversibleFlip ? fFigureOutFinalSiteType(current, endA, endB, numTypes)
                    : endB == kAnyType      ? drawType(numTypes)
                                            : endB;
  const double u = fRandReal();
  // The acceptance is at most 1, so a draw at or above the parameter refuses the flip whatever the energy.
  if (!(parameter > u)) return;

  const Neighbours neighbours = neighboursOf(i, j, imax, jmax, lattice);
  const int needed = ruleFac[r][0];
  if (needed > 0 && countFacilitating(ruleFac[r][1], neighbours, numTypes, masquerade) < needed) return;

  if (ruleIgnoreEnergy[r] != 1) {
    const double before = halfBondSum(current, neighbours, J) + field[current];
    const double after = halfBondSum(final, withSubstitute(neighbours, imax, jmax, final), J) + field[final];
    if (!(parameter * acceptance(after - before) > u)) return;
  }
  lattice[i][j] = final;
}

}  // namespace quorvane
