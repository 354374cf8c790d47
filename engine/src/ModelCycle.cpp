#include "Attempt.h"
#include "ProcessDraws.h"
#include "SiteAttempt.h"

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

void attemptAt(Site site, Lattice& lattice, Size size, int numTypes, const RuleArrays& rules) {
  const Type current = typeOf(lattice[site.i][site.j]);
  const int rule =
      drawRule(rules.accessible[current], rowLength(rules.accessibleCount[current]), rules.ruleDisabled);
  if (!usable(rule, rules.ruleDisabled)) return;

  const Action action = actionOf(rule, static_cast<int>(current), numTypes, rules);
  ProcessDraws draws;
  const LiveEnergies energies{{rules.J}, rules.field};
  ExactAcceptance acceptance;
  const AttemptContext context{lattice, size,     static_cast<std::uint32_t>(numTypes),
                               draws,   energies, acceptance};
  if (size.isWide())
    perform<true>(context, action, site, current);
  else
    perform<false>(context, action, site, current);
}

void fModelCycle(int i, int j, int imax, int jmax, Lattice& lattice, int numTypes, int /*numRules*/,
                 const PerRuleInt& ruleType, const PerRuleInt& ruleDisabled,
                 const PerRuleInt& ruleIgnoreEnergy, const PerRuleIntPair& ruleEndPoints,
                 const PerRuleReal& ruleParameter, const PerRuleIntPair& ruleFac, const RuleRows& accessible,
                 const PerTypeInt& accessibleCount, const PerTypeInt& immobile, const PerTypeReal& field,
                 const PerTypeInt& masquerade, const PairEnergies& J) {
  attemptAt(siteAt(i, j), lattice, sizeOf(imax, jmax), numTypes,
            {.ruleType = ruleType,
             .ruleDisabled = ruleDisabled,
             .ruleIgnoreEnergy = ruleIgnoreEnergy,
             .ruleEndPoints = ruleEndPoints,
             .ruleParameter = ruleParameter,
             .ruleFac = ruleFac,
             .accessible = accessible,
             .accessibleCount = accessibleCount,
             .immobile = immobile,
             .field = field,
             .masquerade = masquerade,
             .J = J});
}

}  // namespace quorvane
