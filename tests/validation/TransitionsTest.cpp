#include <algorithm>
#include <cmath>
#include <utility>

#include "Figures.h"
#include "SmallSystems.h"
#include "TransitionMatrix.h"
#include "engine/f_ran0.h"

namespace quorvane::validation {
namespace {

/// A system that uses every feature of an attempt: three types, six rules of all kinds, one disabled, one
/// that ignores energies, one facilitated by a type that another masquerades as.
System everyKindOfRule() {
  System system{3, 2, 3, {}};
  system.rules = {{kReversibleFlip, 0, 1, 0.75},
                  {kReversibleFlip, 2, kAnyPixelType, 0.5, 3, 1},
                  {kIrreversibleFlip, 1, kAnyPixelType, 0.625},
                  {kIrreversibleFlip, kAnyPixelType, 0, 0.25, 2, 2, true},
                  {kSwap, 1, 2, 0.875},
                  {kSwap, kAnyPixelType, kAnyPixelType, 1.0, 0, 0, false, true}};
  setPairEnergy(system, 0, 1, 0.5);
  setPairEnergy(system, 0, 2, -0.25);
  setPairEnergy(system, 1, 2, 0.375);
  system.field[1] = 0.25;
  system.field[2] = 0.5;
  system.masquerade[0] = 2;
  return system;
}

TEST(TransitionRules, HaveEveryKindThatChangesSites) {
  const std::vector<Rule> rules = everyKindOfRule().rules;
  for (const RuleKind& kind : kRuleKinds)
    EXPECT_NE(kind.setsPairEnergy(), std::any_of(rules.begin(), rules.end(),
                                                 [&](const Rule& rule) { return rule.type == kind.type; }))
        << kind.label;
}

/// Single attempts, each from a restored configuration, so that outcomes are independent.
class Transitions : public ValidationTest {
 protected:
  static constexpr int kAttemptsFromEach = 120'000;

  /// Counts outcomes in the order of the rows of the matrix.
  void makeAttempts() {
    const Configurations all(system);
    const auto model = modelOf(system);
    for (int from = 0; from < all.count(); ++from) {
      std::vector<std::int64_t> outcomes(static_cast<std::size_t>(all.count()));
      for (int k = 0; k < kAttemptsFromEach; ++k) {
        all.write(from, *model);
        const int i = fRandInt(system.imax) - 1;
        const int j = fRandInt(system.jmax) - 1;
        attemptAt(*model, i, j);
        ++outcomes[static_cast<std::size_t>(all.numberOf(*model))];
      }
      auto& possible = counts.emplace_back();
      for (const auto& [to, probability] : matrix.from(from))
        possible.push_back(std::exchange(outcomes[static_cast<std::size_t>(to)], 0));
      EXPECT_EQ(std::count(outcomes.begin(), outcomes.end(), 0), all.count()) << "impossible, from " << from;
    }
  }

  ChiSquared chiSquared() const {
    ChiSquared sum;
    for (int from = 0; from < matrix.count(); ++from) {
      std::vector<double> probabilities;
      for (const auto& outcome : matrix.from(from)) probabilities.push_back(outcome.second);
      sum.add(counts[static_cast<std::size_t>(from)], probabilities);
    }
    return sum;
  }

  /// The maximum-likelihood estimate of the change of a quantity from its documented value, to first order.
  template <class Change>
  Estimate change(Change&& by) const {
    constexpr double step = 1e-4;
    System above = system, below = system;
    by(above, step);
    by(below, -step);
    const TransitionMatrix up(above), down(below);
    double score = 0.0, information = 0.0;
    for (int from = 0; from < matrix.count(); ++from) {
      std::size_t k = 0;
      for (const auto& [to, p] : matrix.from(from)) {
        const double slope = (up.probability(from, to) - down.probability(from, to)) / (2 * step);
        score += static_cast<double>(counts[static_cast<std::size_t>(from)][k++]) * slope / p;
        information += kAttemptsFromEach * slope * slope / p;
      }
    }
    return {score / information, 1 / std::sqrt(information)};
  }

  const System system = everyKindOfRule();
  const TransitionMatrix matrix{system};
  std::vector<std::vector<std::int64_t>> counts;
};

TEST_F(Transitions, HaveTheProbabilitiesOfTheDocumentedRules) {
  makeAttempts();
  expectAgreement("all from each of 729 configurations", chiSquared());

  for (const std::size_t rule : {0, 1, 2, 3, 4}) {
    const double exact = system.rules[rule].parameter;
    const Estimate by = change([=](System& s, double step) { s.rules[rule].parameter += step; });
    expectAgreement("parameter of rule " + std::to_string(rule + 1), {exact + by.value, by.error}, exact);
  }
  const Estimate pairBy = change([](System& s, double step) { setPairEnergy(s, 0, 1, s.J[0][1] + step); });
  expectAgreement("pair energy of types 0 and 1", {system.J[0][1] + pairBy.value, pairBy.error},
                  system.J[0][1]);
  const Estimate by = change([](System& s, double step) { s.field[1] += step; });
  const Estimate field{system.field[1] + by.value, by.error};
  expectAgreement("field of type 1", field, system.field[1]);
  expectRejection("field of type 1 larger by 0.01", field, system.field[1] + 0.01);
}

}  // namespace
}  // namespace quorvane::validation
