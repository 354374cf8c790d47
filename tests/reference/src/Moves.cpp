#include <cmath>

#include "reference/LatticeFunctions.h"
#include "reference/Ran0.h"

namespace quorvane::reference {
namespace {

void exchange(int& a, int& b) {
  const int kept = a;
  a = b;
  b = kept;
}

double acceptance(double before, double after) {
  const double x = std::exp(-(after - before));
  if (std::isnan(x)) return 1.0;
  return x < 1.0 ? x : 1.0;
}

}  // namespace

double fSiteNNEnergyLM(int i, int j, int imax, int jmax, int lattice[256][256], const double J[10][10],
                       int substitute) {
  double energy = 0.0;
  int saved = 0;
  if (substitute != -1) {
    saved = lattice[i][j];
    lattice[i][j] = substitute;
  }
  const int t = lattice[i][j];
  for (int dir = 1; dir <= 8; ++dir) {
    const int n = lattice[fn_pbc(fn_neighbi(i, dir), imax)][fn_pbc(fn_neighbj(j, dir), jmax)];
    energy = J[t][n] / 2.0 + energy;
  }
  if (substitute != -1) lattice[i][j] = saved;
  return energy;
}

void fExchangeMove(int i, int j, int imax, int jmax, int targetType, int lattice[256][256],
                   const int immobile[10], const double J[10][10], int ignoreEnergy) {
  const double u = fRandReal();
  const int dir = fRandInt(8);
  const int ni = fn_pbc(fn_neighbi(i, dir), imax);
  const int nj = fn_pbc(fn_neighbj(j, dir), jmax);
  const bool allowed = immobile[lattice[i][j]] == 0 && immobile[lattice[ni][nj]] == 0 &&
                       (targetType == -1 || lattice[ni][nj] == targetType);
  if (!allowed) return;
  double before = 0.0;
  double after = 0.0;
  if (ignoreEnergy != 1) {
    before = fSiteNNEnergyLM(i, j, imax, jmax, lattice, J, -1);
    before = before + fSiteNNEnergyLM(ni, nj, imax, jmax, lattice, J, -1);
    exchange(lattice[i][j], lattice[ni][nj]);
    after = fSiteNNEnergyLM(i, j, imax, jmax, lattice, J, -1);
    after = after + fSiteNNEnergyLM(ni, nj, imax, jmax, lattice, J, -1);
    exchange(lattice[i][j], lattice[ni][nj]);
  }
  const double p = acceptance(before, after);
  if (p > u) exchange(lattice[i][j], lattice[ni][nj]);
}

int fFigureOutFinalSiteType(int current, int endA, int endB, int numTypes) {
  if (endA == -1 && endB == -1) return fRandInt(numTypes) - 1;
  if (endA == -1 || endB == -1) {
    if (current == endA || current == endB) return fRandInt(numTypes) - 1;
    return endA == -1 ? endB : endA;
  }
  return current == endA ? endB : endA;
}

void fModelCycle(int i, int j, int imax, int jmax, int lattice[256][256], int numTypes, int /*numRules*/,
                 const int ruleType[50], const int ruleDisabled[50], const int ruleIgnoreEnergy[50],
                 const int ruleEndPoints[50][2], const double ruleParameter[50], const int ruleFac[50][2],
                 const int accessible[10][50], const int accessibleCount[10], const int immobile[10],
                 const double field[10], const int masquerade[10], const double J[10][10]) {
  const int t = lattice[i][j];
  const int n = accessibleCount[t];
  if (n <= 0) return;

  int tried[50];
  for (int k = 0; k < n; ++k) tried[k] = 0;
  int numTried = 0;
  int r;
  while (true) {
    const int k = fRandInt(n) - 1;
    r = accessible[t][k];
    if (ruleDisabled[r] == 0) break;
    if (tried[k] == 0) {
      tried[k] = 1;
      ++numTried;
      if (numTried == n) return;
    }
  }

  const int endA = ruleEndPoints[r][0];
  const int endB = ruleEndPoints[r][1];
  const double p = ruleParameter[r];
  if (ruleType[r] == 0 || ruleType[r] == 1) {
    const int facNum = ruleFac[r][0];
    const int facType = ruleFac[r][1];
    int c = fNumNeighbourSitesOfType(i, j, imax, jmax, facType, lattice);
    for (int m = 0; m < numTypes; ++m)
      if (masquerade[m] == facType) c += fNumNeighbourSitesOfType(i, j, imax, jmax, m, lattice);
    int final;
    if (ruleType[r] == 0)
      final = endB == -1 ? fRandInt(numTypes) - 1 : endB;
    else
      final = fFigureOutFinalSiteType(t, endA, endB, numTypes);
    const double u = fRandReal();
    double before = 0.0;
    double after = 0.0;
    if (ruleIgnoreEnergy[r] != 1) {
      before = fSiteNNEnergyLM(i, j, imax, jmax, lattice, J, -1) + field[t];
      after = fSiteNNEnergyLM(i, j, imax, jmax, lattice, J, final) + field[final];
    }
    const double q = p * acceptance(before, after);
    if (c >= facNum && q > u) lattice[i][j] = final;
  } else {
    const double u = fRandReal();
    if (p > u) fExchangeMove(i, j, imax, jmax, endB, lattice, immobile, J, ruleIgnoreEnergy[r]);
  }
}

}  // namespace quorvane::reference
