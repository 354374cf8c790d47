#include "reference/Lockstep.h"

#include <bit>
#include <cmath>

#include "engine/f_ran0.h"
#include "reference/LatticeFunctions.h"
#include "reference/Ran0.h"

namespace quorvane::reference {
namespace {

std::string at(int i, int j) { return " at (" + std::to_string(i) + ", " + std::to_string(j) + ")"; }

}  // namespace

void restartSources(int draws) {
  processRandomSource = RandomSource();
  source = Ran0<CLibrary>();
  // The engine's first draw compares the C library's generator, so the reference seeds it again after that.
  for (int k = 0; k < draws; ++k) quorvane::fRandReal();
  for (int k = 0; k < draws; ++k) fRandReal();
}

bool sourcesAgree() {
  RandomSource ahead = processRandomSource;
  return ahead.next() / RandomSource::maxran == source.upcoming();
}

bool same(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

Lockstep::Lockstep(std::unique_ptr<System> system) : plain_(std::move(system)), engine_(toEngine(*plain_)) {}

std::string Lockstep::attempt() {
  const int i = fRandInt(plain_->imax) - 1;
  const int j = fRandInt(plain_->jmax) - 1;
  const int before = plain_->lattice[i][j];
  attemptAt(*plain_, i, j);
  const Attempted actual = reference::attempt(*engine_);
  if (plain_->lattice[i][j] != before) ++changes_;
  if (actual.i != i || actual.j != j) return "another site than" + at(i, j);
  if (!sourcesAgree()) return "another number of draws" + at(i, j);
  for (int dir = 0; dir <= 8; ++dir) {
    const int ni = fn_pbc(fn_neighbi(i, dir), plain_->imax);
    const int nj = fn_pbc(fn_neighbj(j, dir), plain_->jmax);
    if (plain_->lattice[ni][nj] != engine_->lattice[ni][nj]) return "another type" + at(ni, nj);
  }
  return {};
}

std::string Lockstep::compareLattices() const {
  for (int i = 0; i < 256; ++i)
    for (int j = 0; j < 256; ++j)
      if (plain_->lattice[i][j] != engine_->lattice[i][j]) return "another type" + at(i, j);
  return {};
}

std::string Lockstep::compareQueriesAt(int i, int j) {
  System& p = *plain_;
  EngineSystem& e = *engine_;
  for (int type = -1; type < 10; ++type) {
    if (!same(fSiteNNEnergyLM(i, j, p.imax, p.jmax, p.lattice, p.J, type),
              quorvane::fSiteNNEnergyLM(i, j, e.imax, e.jmax, e.lattice, e.J, type)))
      return "another energy with type " + std::to_string(type) + at(i, j);
    if (fNumNeighbourSitesOfType(i, j, p.imax, p.jmax, type, p.lattice) !=
        quorvane::fNumNeighbourSitesOfType(i, j, e.imax, e.jmax, type, e.lattice))
      return "another number of neighbours of type " + std::to_string(type) + at(i, j);
  }
  if (fUps(i, j, p.imax, p.jmax, p.lattice) != quorvane::fUps(i, j, e.imax, e.jmax, e.lattice))
    return "another fUps" + at(i, j);
  if (fDenses(i, j, p.imax, p.jmax, p.lattice) != quorvane::fDenses(i, j, e.imax, e.jmax, e.lattice))
    return "another fDenses" + at(i, j);
  return {};
}

}  // namespace quorvane::reference
