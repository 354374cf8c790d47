#pragma once

#include <span>

namespace quorvane {

/// The cost of an attempt, in units of one draw in a tight loop, on 254 by 254 sites.
struct Goal {
  const char* name;   ///< of the typical system
  const char* draws;  ///< draws per attempt
  double most;        ///< the goal, which docs/performance.md says whether it is met
  double recorded;    ///< measured on the machine that docs/performance.md names
};

inline std::span<const Goal> goals() {
  static constexpr Goal all[] = {
      {"NoRules", "2", 2.1, 2.0},
      {"FlipsWithPairEnergies", "4", 6.3, 4.9},
      {"SwapsWithPairEnergies", "3 to 6", 7.2, 7.9},
      {"FacilitatedFlips", "2 to 4", 5.0, 4.9},
      {"ThreeTypes", "4 to 6", 9.6, 10.5},
      {"TenTypesWithRulesOfAllKinds", "mixed", 13.2, 13.8},
  };
  return all;
}

/// The cost of a whole sweep of the run loop, in units of its attempts.
struct SweepGoal {
  const char* name;
  double most;
};

inline std::span<const SweepGoal> sweepGoals() {
  static constexpr SweepGoal all[] = {{"FlipsWithPairEnergies", 1.12}, {"TenTypesWithRulesOfAllKinds", 1.3}};
  return all;
}

}  // namespace quorvane
