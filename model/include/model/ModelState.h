#pragma once

#include <cstdint>

#include "engine/RuleKinds.h"
#include "engine/f_LMlattice.h"
#include "model/SharedName.h"

namespace quorvane {

/// Values of ModelState::varMyState.
enum RunState : std::int32_t {
  kNotInitialised = 0,
  kStopped = 1,
  kRunning = 2,
  kPausedForPainting = 10,
};

/// In rule end points and facilitation: any pixel type.
inline constexpr std::int32_t kAnyPixelType = -1;
/// In masquerade: the type counts only as itself.
inline constexpr std::int32_t kNoMasquerade = -1;

/// Every field of a system, inline and of fixed size, all zero at the start.
///
/// Pixel types in use are 0 to varNumSiteTypes - 1, rules in use 0 to varNumRules - 1 in order of creation,
/// and sites in use the varImax by varJmax corner of the lattice. Real numbers are dimensionless; energies
/// are in units of kT. Fields that the run loop's thread and the main thread share are Relaxed; names belong
/// to the main thread.
struct ModelState {
  // The view and the run.
  Relaxed<double> varMyWidth, varMyHeight;   ///< size of the view in points, as of the last frame drawn
  Relaxed<double> varSiteSpacing;            ///< side of a site in points, as of the last frame drawn
  Relaxed<std::int32_t> varMyState;          ///< a RunState
  Relaxed<std::int32_t> varPainting;         ///< 1 during a paint stroke
  Relaxed<std::int32_t> varInFullScreen;     ///< 1 while the view fills the screen
  Relaxed<std::int32_t> varMyType;           ///< not used
  Relaxed<std::int32_t> varDelayAfterCycle;  ///< speed: divisor of the wait after each sweep
  Relaxed<std::int32_t> varPauseWhilePaint;  ///< 1 if a paint stroke pauses the run
  Relaxed<std::int32_t> varPaintbrushColor;  ///< pixel type that painting writes
  Relaxed<std::int32_t> varIHoverLast, varJHoverLast;  ///< -1 at the start of a stroke
  Relaxed<std::int32_t> varMyStateBeforePainting;      ///< run state to go back to after a stroke

  // Pixel types.
  Relaxed<std::int32_t> varNumSiteTypes;
  SharedName varSiteName[kMaxPixelTypes];
  Relaxed<double> varSiteColor[kMaxPixelTypes][3];  ///< red, green, blue, 0 to 1
  PerTypeReal varSiteAlpha;                         ///< 0 (not drawn) to 1 (opaque)
  PerTypeReal varHistoryPersistenceConst;           ///< fraction of the trace that remains after a sweep
  PerTypeInt varPixelImmobile;                      ///< 1 if no swap moves the type
  PerTypeInt varSiteMasqueradeAs;                   ///< type it counts as for facilitation, or kNoMasquerade
  PerTypeReal varSiteField;                         ///< energy of a site for holding the type
  PairEnergies varInteractionConstants;             ///< the pair energies that the engine reads; symmetric
  PairEnergies varInteractionConstantsBCK;          ///< values of disabled interaction rules; symmetric

  // Rules.
  Relaxed<std::int32_t> varNumRules;
  SharedName varRuleName[kMaxRules];
  PerRuleInt varRuleType;                       ///< a RuleType
  PerRuleInt varRuleDisabled;                   ///< 0 if the engine may draw the rule
  PerRuleInt varRuleIgnoreEnergy;               ///< 1 if acceptance has no energy term
  PerRuleIntPair varRuleEndPoints;              ///< end A, end B: pixel type or kAnyPixelType
  PerRuleReal varRuleParameter;                 ///< probability factor, or the pair energy of an interaction
  PerRuleIntPair varRuleFacNumAndType;          ///< neighbours needed, type that counts
  RuleRows varAccessibleRulesForSiteID;         ///< row t: rules that can act on a site of type t
  PerTypeInt varAccessibleRulesForSiteIDCount;  ///< length of each row

  // The lattice and its display trace.
  Relaxed<std::int32_t> varImax, varJmax;                                ///< sites across and upwards
  Lattice varSiteValues;                                                 ///< pixel type of each site, [i][j]
  Relaxed<double> varMobileHistory[kMaxPixelTypes][kMaxSide][kMaxSide];  ///< trace, [type][i][j]
  PerTypeReal varMobileHistoryMax;  ///< largest trace of the type, at least 1

  // Not used.
  Relaxed<double> varK, varKP, varS, varB, varEquilAtt, varJ;
  Relaxed<std::int32_t> varFacNum;

  ModelState(const ModelState&) = delete;
  ModelState& operator=(const ModelState&) = delete;

 protected:
  ModelState() = default;
  ~ModelState() = default;
};

}  // namespace quorvane
