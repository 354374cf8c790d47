#pragma once

#include <string>

#include "reference/System.h"

namespace quorvane::reference {

/// Resets the engine's random source and the reference source to the state of a fresh process, and makes the
/// same number of draws from both.
void restartSources(int draws = 1);

/// True if the next draw of both sources is the same.
bool sourcesAgree();

/// The same value, bit for bit, or two NaNs.
bool same(double a, double b);

/// Runs the engine and the reference functions on two copies of one system with the same draws.
class Lockstep {
 public:
  explicit Lockstep(std::unique_ptr<System> system);

  /// Makes one attempt on both. Empty, or what differs: the next draw, the site, a neighbour.
  std::string attempt();
  /// Empty, or the first site of the whole lattice that differs.
  std::string compareLattices() const;
  /// Empty, or the first difference between the energies and neighbour counts of a site.
  std::string compareQueriesAt(int i, int j);

  /// Attempts that changed the type of the chosen site.
  int changes() const { return changes_; }

  System& plain() { return *plain_; }
  EngineSystem& engine() { return *engine_; }

 private:
  std::unique_ptr<System> plain_;
  std::unique_ptr<EngineSystem> engine_;
  int changes_ = 0;
};

}  // namespace quorvane::reference
