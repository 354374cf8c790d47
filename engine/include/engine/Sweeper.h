#pragma once

#include <cstdint>
#include <memory>

#include "engine/SystemArrays.h"

namespace quorvane {

/// Consecutive attempts: the same bits as one call of fModelCycle for each, several times as fast.
///
/// Reads the size, rules, energies and flags at least once in 4096 attempts and compiles them for attempts; a
/// change that another thread makes takes effect by then, usually within a tenth of a millisecond. Sites and
/// the state are read in every attempt. Any number of sweepers may work on one system; each belongs to one
/// thread.
class Sweeper {
 public:
  explicit Sweeper(const SystemArrays& system);
  ~Sweeper();
  Sweeper(Sweeper&& other) noexcept;

  /// imax * jmax + 1 attempts, ended early if the state differs from the given one. Draws per attempt:
  /// fRandInt(imax), fRandInt(jmax) and those of fModelCycle.
  void sweep(const Relaxed<std::int32_t>& state, std::int32_t whileState);

  /// The same for a number of attempts.
  void attempts(std::int64_t count, const Relaxed<std::int32_t>& state, std::int32_t whileState);

 private:
  struct Tables;

  std::int64_t batch(std::int64_t count, const Relaxed<std::int32_t>& state, std::int32_t whileState);

  SystemArrays system_;
  std::unique_ptr<Tables> tables_;
};

}  // namespace quorvane
