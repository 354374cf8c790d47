#include "Neighbourhood.h"
#include "engine/f_LMlattice.h"
#include "engine/f_ran0.h"

namespace quorvane {
namespace {

Step stepOf(int dir) {
  return dir >= 1 && dir <= kNumDirections ? kSteps[static_cast<std::size_t>(dir - 1)] : Step{0, 0};
}

}  // namespace

int fn_neighbi(int i, int dir) { return i + static_cast<int>(stepOf(dir).i); }
int fn_neighbj(int j, int dir) { return j + static_cast<int>(stepOf(dir).j); }

int fn_pbc(int x, int n) {
  const int remainder = x % n;
  return remainder < 0 ? remainder + n : remainder;
}

Neighbours withChange(Neighbours neighbours, Site site, Size size, Site changed, Type type) {
  for (std::size_t direction = 0; direction < kNumDirections; ++direction)
    if (neighbourSite(site, size, direction) == changed) neighbours.type[direction] = type;
  return neighbours;
}

int fNumNeighbourSitesOfType(int i, int j, int imax, int jmax, int type, const Lattice& lattice) {
  return countNeighbours(neighboursOf(siteAt(i, j), sizeOf(imax, jmax), lattice),
                         [=](int n) { return n == type; });
}

int fUps(int i, int j, int imax, int jmax, const Lattice& lattice) {
  return countNeighbours(neighboursOf(siteAt(i, j), sizeOf(imax, jmax), lattice),
                         [](int n) { return n == 2 || n == 5 || n == 11; });
}

int fDenses(int i, int j, int imax, int jmax, const Lattice& lattice) {
  return fNumNeighbourSitesOfType(i, j, imax, jmax, 0, lattice);
}

void fModelInit(int numTypes, int imax, int jmax, Lattice& lattice) {
  for (int i = 0; i < imax; ++i)
    for (int j = 0; j < jmax; ++j) lattice[i][j] = fRandInt(numTypes) - 1;
}

}  // namespace quorvane
