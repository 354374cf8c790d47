#pragma once

#include <cstdint>

#include "engine/Limits.h"
#include "engine/Relaxed.h"

/// Lattice geometry, site energies and moves: stateless free functions on the arrays of a model. Any thread
/// may call them; if two threads work on one lattice, each may see single sites change, never an index
/// outside the arrays. Trial values are never written into the lattice. A rejected flip or swap may write
/// back the types that it has read, so a site that another thread paints during the attempt may keep its
/// former type.
///
/// Throughout: i is 0 to imax - 1 and j is 0 to jmax - 1, imax and jmax are 1 to kMaxSide, both directions
/// are periodic, and every site holds a pixel type 0 to kMaxPixelTypes - 1. Energies are in units of kT.
namespace quorvane {

/// The pixel type of every site, [i][j]: i runs across the view, j upwards.
using Lattice = Relaxed<std::int32_t>[kMaxSide][kMaxSide];
/// Pair energies, [type of the centre site][type of the neighbour].
using PairEnergies = Relaxed<double>[kMaxPixelTypes][kMaxPixelTypes];

/// One whole number or real number for each pixel type.
using PerTypeInt = Relaxed<std::int32_t>[kMaxPixelTypes];
using PerTypeReal = Relaxed<double>[kMaxPixelTypes];
/// One whole number, pair of whole numbers or real number for each rule.
using PerRuleInt = Relaxed<std::int32_t>[kMaxRules];
using PerRuleIntPair = Relaxed<std::int32_t>[kMaxRules][2];
using PerRuleReal = Relaxed<double>[kMaxRules];
/// Rows of rule indices, one row for each pixel type.
using RuleRows = Relaxed<std::int32_t>[kMaxPixelTypes][kMaxRules];

/// i and j after one step in direction dir. Directions 1 to 8 change (i, j) by
/// (+1,0) (0,+1) (-1,0) (0,-1) (+1,+1) (-1,+1) (+1,-1) (-1,-1); any other leaves the coordinate as it is.
int fn_neighbi(int i, int dir);
int fn_neighbj(int j, int dir);

/// x modulo n, in 0 to n - 1 for any x. n must not be 0.
int fn_pbc(int x, int n);

/// How many of the eight neighbours hold the type, 0 to 8. A neighbour that several directions reach (on a
/// lattice one or two sites wide) counts once for each of them. Type -1 counts nothing.
int fNumNeighbourSitesOfType(int i, int j, int imax, int jmax, int type, const Lattice& lattice);

/// How many of the eight neighbours hold one of the types 2, 5 and 11. Nothing in the system calls it.
int fUps(int i, int j, int imax, int jmax, const Lattice& lattice);

/// How many of the eight neighbours hold type 0. Nothing in the system calls it.
int fDenses(int i, int j, int imax, int jmax, const Lattice& lattice);

/// Fills the lattice with types uniform in 0 to numTypes - 1, i in the outer and j in the inner loop. One
/// draw per site; sites outside the imax by jmax corner are not changed.
void fModelInit(int numTypes, int imax, int jmax, Lattice& lattice);

/// The energy of a site: half the sum of J[its type][neighbour's type] over the eight directions, added up in
/// direction order. With a substitute other than -1, the energy that the site would have with that type; a
/// site that is its own neighbour sees the substitute there too. No draws.
double fSiteNNEnergyLM(int i, int j, int imax, int jmax, const Lattice& lattice, const PairEnergies& J,
                       int substitute);

/// Tries to exchange a site with a random neighbour (Kawasaki, Phys. Rev. 145, 224, 1966) with the acceptance
/// min(1, exp(-dE)) of Metropolis et al., J. Chem. Phys. 21, 1087, 1953.
///
/// Always two draws: fRandReal for the acceptance, then fRandInt(8) for the direction. No effect if either
/// type is immobile, or if targetType is not -1 and the neighbour has another type. dE is the change of the
/// sum of both sites' energies, in which the bond between the two counts twice; with ignoreEnergy 1 it is 0.
/// A dE of NaN is accepted.
void fExchangeMove(int i, int j, int imax, int jmax, int targetType, Lattice& lattice,
                   const PerTypeInt& immobile, const PairEnergies& J, int ignoreEnergy);

/// One attempt on one site: draws an enabled rule from the row of the site's type and applies it with a
/// probability made of the rule's parameter and min(1, exp(-dE)).
///
/// Draws, in order: none if the row is empty; fRandInt(row length) until the entry drawn is enabled or every
/// position has been drawn disabled, which ends the attempt. Then for a flip (types 0 and 1)
/// fRandInt(numTypes) if the final type is random, and fRandReal; for a swap fRandReal, and if it is below
/// the parameter the two draws of fExchangeMove.
///
/// A flip needs at least ruleFac[r][0] neighbours that have type ruleFac[r][1] or a type that masquerades as
/// it; with facilitation type -1, all neighbours whose type does not masquerade count. numRules is not used.
/// An entry of a row that is not a rule (because another thread is removing one) counts as disabled.
void fModelCycle(int i, int j, int imax, int jmax, Lattice& lattice, int numTypes, int numRules,
                 const PerRuleInt& ruleType, const PerRuleInt& ruleDisabled,
                 const PerRuleInt& ruleIgnoreEnergy, const PerRuleIntPair& ruleEndPoints,
                 const PerRuleReal& ruleParameter, const PerRuleIntPair& ruleFac, const RuleRows& accessible,
                 const PerTypeInt& accessibleCount, const PerTypeInt& immobile, const PerTypeReal& field,
                 const PerTypeInt& masquerade, const PairEnergies& J);

/// The type to which a reversible flip between endA and endB changes a site of the current type. An end of -1
/// means any type. One draw, fRandInt(numTypes), if the result is random: if both ends are -1, or if one is
/// and the site has the other. Never -1; a random result may equal the current type.
int fFigureOutFinalSiteType(int current, int endA, int endB, int numTypes);

}  // namespace quorvane
