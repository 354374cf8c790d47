#pragma once

#include <cstdint>

#include "engine/Limits.h"
#include "engine/Relaxed.h"

/// Lattice geometry, site energies and moves: free functions on the arrays of a model, with no state of their
/// own. Any thread may call them; two threads may work on one lattice, and each then sees single sites change
/// under it, never an index outside the arrays. A trial value is never written into the lattice. A refused
/// flip or swap may write back the types it has read, so a site that another thread paints during the attempt
/// may keep its former type.
///
/// Everywhere: i is 0 to imax - 1 and j is 0 to jmax - 1, imax and jmax are 1 to kMaxSide, both directions
/// wrap, and every site holds a pixel type 0 to kMaxPixelTypes - 1. Energies are in units of kT.
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

/// Gives every site a type uniform in 0 to numTypes - 1, i the outer loop and j the inner. One draw a site;
/// sites outside the imax by jmax corner stay as they are.
void fModelInit(int numTypes, int imax, int jmax, Lattice& lattice);

/// The energy of a site: half the sum of J[its type][neighbour's type] over the eight directions, added up in
/// direction order. With a substitute other than -1, the energy that the site would have if it held that
/// type; where the site is its own neighbour, the neighbour holds the substitute too. No draws.
double fSiteNNEnergyLM(int i, int j, int imax, int jmax, const Lattice& lattice, const PairEnergies& J,
                       int substitute);

/// Tries to exchange a site with a random neighbour (Kawasaki, Phys. Rev. 145, 224, 1966) with the acceptance
/// min(1, exp(-dE)) of Metropolis et al., J. Chem. Phys. 21, 1087, 1953.
///
/// Always two draws: fRandReal for the acceptance, then fRandInt(8) for the direction. Nothing happens when
/// either type is immobile, or when targetType is not -1 and the neighbour holds another. dE is the change of
/// the sum of both sites' energies, so the bond between the two counts from both sides; with ignoreEnergy 1
/// it is 0. A dE that is not a number is accepted.
void fExchangeMove(int i, int j, int imax, int jmax, int targetType, Lattice& lattice,
                   const PerTypeInt& immobile, const PairEnergies& J, int ignoreEnergy);

/// One attempt on one site: draws an enabled rule from the row of the site's type and applies it with a
/// probability made of the rule's parameter and min(1, exp(-dE)).
///
/// Draws, in order: none if the row is empty; fRandInt(row length) until an enabled rule comes up or every
/// position of the row has come up disabled, which ends the attempt. Then for a flip (types 0 and 1)
/// fRandInt(numTypes) if the final type is a random one, and fRandReal; for a swap fRandReal, and if it is
/// below the parameter the two draws of fExchangeMove.
///
/// A flip needs at least ruleFac[r][0] neighbours that hold type ruleFac[r][1] or a type that masquerades as
/// it; with facilitation type -1, neighbours of every type that masquerades as nothing count. numRules is not
/// used. An entry of a row that is no rule (one that another thread is just removing) counts as disabled.
void fModelCycle(int i, int j, int imax, int jmax, Lattice& lattice, int numTypes, int numRules,
                 const PerRuleInt& ruleType, const PerRuleInt& ruleDisabled,
                 const PerRuleInt& ruleIgnoreEnergy, const PerRuleIntPair& ruleEndPoints,
                 const PerRuleReal& ruleParameter, const PerRuleIntPair& ruleFac, const RuleRows& accessible,
                 const PerTypeInt& accessibleCount, const PerTypeInt& immobile, const PerTypeReal& field,
                 const PerTypeInt& masquerade, const PairEnergies& J);

/// The type that a reversible flip between endA and endB takes a site of the current type to. An end of -1
/// stands for any type. One draw, fRandInt(numTypes), where the result is a random type: when both ends are
/// -1, or one is and the site holds the other. Never -1; a random result may equal the current type.
int fFigureOutFinalSiteType(int current, int endA, int endB, int numTypes);

}  // namespace quorvane
