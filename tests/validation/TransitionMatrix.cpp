#include "TransitionMatrix.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace quorvane::validation {
namespace {

/// The possible outcomes of one attempt at a configuration.
class Attempt {
 public:
  Attempt(const System& system, const Configuration& before) : system_(system), before_(before) {}

  /// The new configurations with their probabilities, without the unchanged one.
  std::map<Configuration, double> outcomes() {
    for (int i = 0; i < system_.imax; ++i)
      for (int j = 0; j < system_.jmax; ++j) attemptAt({i, j}, 1.0 / system_.sites());
    return outcomes_;
  }

 private:
  void attemptAt(Site site, double probability) {
    std::vector<Rule> enabled = rowOf(system_, typeAt(site));
    std::erase_if(enabled, [](const Rule& rule) { return rule.disabled; });
    for (const Rule& rule : enabled) {
      const double share = probability * rule.parameter / static_cast<double>(enabled.size());
      act(site, rule, share);
    }
  }

  void act(Site site, const Rule& rule, double probability) {
    switch (static_cast<RuleType>(rule.type)) {
      case kIrreversibleFlip:
      case kReversibleFlip:
        return flip(site, rule, probability);
      case kSwap:
        return swap(site, rule, probability);
      case kPixelPixelInteraction:
        return;
    }
  }

  void flip(Site site, const Rule& rule, double probability) {
    if (facilitatorsOf(site, rule.facilitatingType) < rule.facilitators) return;
    const std::vector<int> finals = finalTypes(typeAt(site), rule);
    for (const int final : finals) {
      Configuration after = before_;
      after[index(site)] = final;
      const double dE = rule.ignoresEnergy ? 0.0
                                           : siteEnergy(after, site) + system_.field[final] -
                                                 siteEnergy(before_, site) - system_.field[typeAt(site)];
      outcomes_[after] += probability / static_cast<double>(finals.size()) * std::min(1.0, std::exp(-dE));
    }
  }

  void swap(Site site, const Rule& rule, double probability) {
    for (int dir = 1; dir <= kNumDirections; ++dir) {
      const Site other = neighbourOf(system_, site, dir);
      const int type = typeAt(site), otherType = typeAt(other);
      if (system_.immobile[type] || system_.immobile[otherType]) continue;
      if (rule.endB != kAnyPixelType && rule.endB != otherType) continue;
      Configuration after = before_;
      std::swap(after[index(site)], after[index(other)]);
      const double dE = rule.ignoresEnergy ? 0.0
                                           : siteEnergy(after, site) + siteEnergy(after, other) -
                                                 siteEnergy(before_, site) - siteEnergy(before_, other);
      outcomes_[after] += probability / kNumDirections * std::min(1.0, std::exp(-dE));
    }
  }

  /// The types that a flip may lead to, all equally likely.
  std::vector<int> finalTypes(int current, const Rule& rule) const {
    std::vector<int> all;
    for (int type = 0; type < system_.types; ++type) all.push_back(type);
    if (rule.type == kIrreversibleFlip) return rule.endB == kAnyPixelType ? all : std::vector{rule.endB};
    const bool anyA = rule.endA == kAnyPixelType, anyB = rule.endB == kAnyPixelType;
    if (anyA && anyB) return all;
    if (anyA || anyB) {
      const int named = anyA ? rule.endB : rule.endA;
      return current == named ? all : std::vector{named};
    }
    return {current == rule.endA ? rule.endB : rule.endA};
  }

  int facilitatorsOf(Site site, int facilitatingType) const {
    int count = 0;
    for (int dir = 1; dir <= kNumDirections; ++dir) {
      const int type = typeAt(neighbourOf(system_, site, dir));
      if (type == facilitatingType) ++count;
      if (system_.masquerade[type] == facilitatingType) ++count;
    }
    return count;
  }

  double siteEnergy(const Configuration& configuration, Site site) const {
    double energy = 0.0;
    for (int dir = 1; dir <= kNumDirections; ++dir)
      energy += system_.J[at(system_, configuration, site)]
                         [at(system_, configuration, neighbourOf(system_, site, dir))] /
                2;
    return energy;
  }

  std::size_t index(Site site) const { return static_cast<std::size_t>(site.i * system_.jmax + site.j); }
  int typeAt(Site site) const { return before_[index(site)]; }

  const System& system_;
  const Configuration& before_;
  std::map<Configuration, double> outcomes_;
};

}  // namespace

std::vector<Rule> rowOf(const System& system, int type) {
  const auto covers = [type](int end) { return end == kAnyPixelType || end == type; };
  std::vector<Rule> row;
  for (const Rule& rule : system.rules) {
    if (covers(rule.endA)) row.push_back(rule);
    if (rule.type == kReversibleFlip && covers(rule.endB)) row.push_back(rule);
  }
  return row;
}

TransitionMatrix::TransitionMatrix(const System& system) {
  const Configurations all(system);
  for (int number = 0; number < all.count(); ++number) {
    const Configuration before = all.at(number);
    Row& row = rows_.emplace_back();
    double stays = 1.0;
    for (const auto& [after, probability] : Attempt(system, before).outcomes()) {
      if (after == before) continue;
      row.emplace_back(all.numberOf(after), probability);
      stays -= probability;
    }
    row.emplace_back(number, stays);
  }
}

double TransitionMatrix::probability(int from, int to) const {
  for (const auto& [configuration, probability] : this->from(from))
    if (configuration == to) return probability;
  return 0.0;
}

std::vector<bool> TransitionMatrix::reachableFrom(int configuration) const {
  std::vector<bool> reached(rows_.size());
  std::vector<int> open = {configuration};
  reached[static_cast<std::size_t>(configuration)] = true;
  while (!open.empty()) {
    const int here = open.back();
    open.pop_back();
    for (const auto& [next, probability] : from(here)) {
      if (probability <= 0.0 || reached[static_cast<std::size_t>(next)]) continue;
      reached[static_cast<std::size_t>(next)] = true;
      open.push_back(next);
    }
  }
  return reached;
}

std::vector<double> TransitionMatrix::stationaryFrom(int configuration) const {
  std::vector<double> now(rows_.size()), next(rows_.size());
  now[static_cast<std::size_t>(configuration)] = 1.0;
  double change = 1.0;
  while (change > 1e-15) {
    std::fill(next.begin(), next.end(), 0.0);
    for (std::size_t k = 0; k < rows_.size(); ++k)
      for (const auto& [to, probability] : rows_[k])
        next[static_cast<std::size_t>(to)] += now[k] * probability;
    change = 0.0;
    for (std::size_t k = 0; k < rows_.size(); ++k) change = std::max(change, std::abs(next[k] - now[k]));
    now.swap(next);
  }
  return now;
}

}  // namespace quorvane::validation
