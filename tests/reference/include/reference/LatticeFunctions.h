#pragma once

/// The literal lattice engine on plain arrays: every step is carried out, trial values are written into the
/// lattice and taken back. The engine is tested and measured against it.
namespace quorvane::reference {

int fn_neighbi(int i, int dir);
int fn_neighbj(int j, int dir);
int fn_pbc(int x, int n);

int fNumNeighbourSitesOfType(int i, int j, int imax, int jmax, int type, const int lattice[256][256]);
int fUps(int i, int j, int imax, int jmax, const int lattice[256][256]);
int fDenses(int i, int j, int imax, int jmax, const int lattice[256][256]);
void fModelInit(int numTypes, int imax, int jmax, int lattice[256][256]);

double fSiteNNEnergyLM(int i, int j, int imax, int jmax, int lattice[256][256], const double J[10][10],
                       int substitute);
void fExchangeMove(int i, int j, int imax, int jmax, int targetType, int lattice[256][256],
                   const int immobile[10], const double J[10][10], int ignoreEnergy);

void fModelCycle(int i, int j, int imax, int jmax, int lattice[256][256], int numTypes, int numRules,
                 const int ruleType[50], const int ruleDisabled[50], const int ruleIgnoreEnergy[50],
                 const int ruleEndPoints[50][2], const double ruleParameter[50], const int ruleFac[50][2],
                 const int accessible[10][50], const int accessibleCount[10], const int immobile[10],
                 const double field[10], const int masquerade[10], const double J[10][10]);
int fFigureOutFinalSiteType(int current, int endA, int endB, int numTypes);

}  // namespace quorvane::reference
