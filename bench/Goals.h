#pragma once

#include <span>

namespace quorvane {

/// The cost of an attempt, in units of one draw in a tight loop, on 254 by 254 sites.
struct Goal {
  const char* name;   ///< of the typical system
  const char* draws;  ///< draws per attempt
  double most;        ///< the goal
  double recorded;    ///< measured when the goal was met; docs/performance.md names the machine
};

inline std::span<const Goal> goals() {
  static constexpr Goal all[] = {
      {"NoRules", "2", 2.5, 2.1},
      {"FlipsWithPairEnergies", "4", 8.0, 7.7},
      {"SwapsWithPairEnergies", "3 to 6", 11.0, 10.1},
      {"FacilitatedFlips", "2 to 4", 8.0, 6.6},
      {"TenTypesWithRulesOfAllKinds", "mixed", 15.0, 14.8},
  };
  return all;
}

/// The cost of a whole sweep of the run loop, in units of its attempts.
struct SweepGoal {
  const char* name;
  double most;
};

inline std::span<const SweepGoal> sweepGoals() {
  static constexpr SweepGoal all[] = {{"FlipsWithPairEnergies", 1.15}, {"TenTypesWithRulesOfAllKinds", 1.5}};
  return all;
}

}  // namespace quorvane
