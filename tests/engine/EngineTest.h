#pragma once

#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "ForeseenDraws.h"
#include "reference/System.h"

namespace quorvane {

/// A lattice with rules, 5 by 5 sites of type 0 unless a test sets another size.
class EngineTest : public testing::Test {
 protected:
  EngineTest() { resize(5, 5); }

  void resize(int imax, int jmax) {
    system.imax = imax;
    system.jmax = jmax;
  }

  void fill(int type) {
    for (int i = 0; i < system.imax; ++i)
      for (int j = 0; j < system.jmax; ++j) lattice[i][j] = type;
  }

  /// Sets the first neighbours of (i, j), in direction order, to a type.
  void surround(int i, int j, int count, int type) {
    for (int dir = 1; dir <= count; ++dir)
      lattice[fn_pbc(fn_neighbi(i, dir), system.imax)][fn_pbc(fn_neighbj(j, dir), system.jmax)] = type;
  }

  int sitesOfType(int type) const {
    int count = 0;
    for (int i = 0; i < system.imax; ++i)
      for (int j = 0; j < system.jmax; ++j) count += system.lattice[i][j] == type ? 1 : 0;
    return count;
  }

  void setPairEnergy(int a, int b, double energy) { system.J[a][b] = system.J[b][a] = energy; }

  int addRule(int type, int endA, int endB) { return reference::addRule(system, type, endA, endB); }

  void attempt(int i, int j) { reference::attemptAt(system, i, j); }

  std::unique_ptr<reference::EngineSystem> storage = std::make_unique<reference::EngineSystem>();
  reference::EngineSystem& system = *storage;
  Lattice& lattice = system.lattice;
};

inline constexpr int kIrreversible = 0;
inline constexpr int kReversible = 1;
inline constexpr int kSwapping = 2;
inline constexpr int kAny = -1;
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

}  // namespace quorvane
