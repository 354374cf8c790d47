#include "reference/LatticeFunctions.h"
#include "reference/Ran0.h"

namespace quorvane::reference {

int fn_neighbi(int i, int dir) {
  if (dir == 1 || dir == 5 || dir == 7) return i + 1;
  if (dir == 3 || dir == 6 || dir == 8) return i - 1;
  return i;
}

int fn_neighbj(int j, int dir) {
  if (dir == 2 || dir == 5 || dir == 6) return j + 1;
  if (dir == 4 || dir == 7 || dir == 8) return j - 1;
  return j;
}

int fn_pbc(int x, int n) {
  int r = x % n;
  if (r < 0) r = r + n;
  return r;
}

int fNumNeighbourSitesOfType(int i, int j, int imax, int jmax, int type, const int lattice[256][256]) {
  int count = 0;
  for (int dir = 1; dir <= 8; ++dir) {
    const int ni = fn_pbc(fn_neighbi(i, dir), imax);
    const int nj = fn_pbc(fn_neighbj(j, dir), jmax);
    if (lattice[ni][nj] == type) ++count;
  }
  return count;
}

int fUps(int i, int j, int imax, int jmax, const int lattice[256][256]) {
  int count = 0;
  for (int dir = 1; dir <= 8; ++dir) {
    const int n = lattice[fn_pbc(fn_neighbi(i, dir), imax)][fn_pbc(fn_neighbj(j, dir), jmax)];
    if (n == 2 || n == 5 || n == 11) ++count;
  }
  return count;
}

int fDenses(int i, int j, int imax, int jmax, const int lattice[256][256]) {
  int count = 0;
  for (int dir = 1; dir <= 8; ++dir)
    if (lattice[fn_pbc(fn_neighbi(i, dir), imax)][fn_pbc(fn_neighbj(j, dir), jmax)] == 0) ++count;
  return count;
}

void fModelInit(int numTypes, int imax, int jmax, int lattice[256][256]) {
  for (int i = 0; i < imax; ++i)
    for (int j = 0; j < jmax; ++j) lattice[i][j] = fRandInt(numTypes) - 1;
}

}  // namespace quorvane::reference
