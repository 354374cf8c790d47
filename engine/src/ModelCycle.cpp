#include "Attempt.h"
#include "Chance.h"
#include "ProcessDraws.h"

namespace quorvane {
namespace {

constexpr int kNoRule = -1;

/// Draws entries of a row until one is an enabled rule, or until every one has come up disabled.
int drawRule(const Relaxed<std::int32_t> (&row)[kMaxRules], std::uint32_t length,
             const PerRuleInt& disabled) {
  if (length == 0) return kNoRule;
  const auto isUsable = [&](std::uint32_t k) { return usable(row[k], disabled); };
  ProcessDraws draws;
  const std::uint32_t first = draws.below(length);
  if (isUsable(first)) return row[first];
  const int other = drawAnother(draws, length, first, isUsable);
  return other == -1 ? kNoRule : row[other].load();
}

}  // namespace

int fFigureOutFinalSiteType(int current, int endA, int endB, int numTypes) {
  const int end = reversibleEnd(current, endA, endB);
  return end == Action::kRandomType ? fRandInt(numTypes) - 1 : end;
}

void fModelCycle(int i, int j, int imax, int jmax, Lattice& lattice, int numTypes, int /*numRules*/,
                 const PerRuleInt& ruleType, const PerRuleInt& ruleDisabled,
                 const PerRuleInt& ruleIgnoreEnergy, const PerRuleIntPair& ruleEndPoints,
                 const PerRuleReal& ruleParameter, const PerRuleIntPair& ruleFac, const RuleRows& accessible,
                 const PerTypeInt& accessibleCount, const PerTypeInt& immobile, const PerTypeReal& field,
                 const PerTypeInt& masquerade, const PairEnergies& J) {
  const int current = lattice[i][j];
  const int rule = drawRule(accessible[current], rowLength(accessibleCount[current]), ruleDisabled);
  if (!usable(rule, ruleDisabled)) return;

  const RuleArrays rules{ruleType,   ruleDisabled,    ruleIgnoreEnergy, ruleEndPoints, ruleParameter, ruleFac,
                         accessible, accessibleCount, immobile,         field,         masquerade,    J};
  const Action action = actionOf(rule, current, numTypes, rules);
  ProcessDraws draws;
  const LiveEnergies energies{{J}, field};
  ExactChance chance;
  const Size size = sizeOf(imax, jmax);
  const Tools tools{lattice, size, static_cast<std::uint32_t>(numTypes), draws, energies, chance};
  if (size.isWide())
    perform<true>(tools, action, siteAt(i, j), static_cast<Type>(current));
  else
    perform<false>(tools, action, siteAt(i, j), static_cast<Type>(current));
}

}  // namespace quorvane
