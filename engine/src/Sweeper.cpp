#include "engine/Sweeper.h"

#include <algorithm>
#include <utility>

#include "ActionTable.h"
#include "Attempt.h"
#include "FewTypes.h"
#include "SiteAttempt.h"
#include "engine/f_ran0.h"

namespace quorvane {
namespace {

/// The most attempts between two readings of the rules.
constexpr std::int64_t kBatch = 4096;
/// For fewer attempts reading all rules does not pay.
constexpr std::int64_t kFew = 64;
/// The cache does not pay if more than one attempt in this many misses it.
constexpr std::int64_t kAttemptsPerMiss = 32;

static_assert(kMostDrawsOfAnAttempt <= RandomSource::Stream::kRoom);

/// An attempt at a random site, on a lattice of any size.
void singleAttempt(const SystemArrays& system) {
  const int imax = system.imax, jmax = system.jmax;
  const int i = fRandInt(imax) - 1;
  const int j = fRandInt(jmax) - 1;
  if (imax < 1 || jmax < 1) return;  // no lattice yet
  attemptAt(siteAt(i, j), system.lattice, sizeOf(imax, jmax), system.numTypes, system.rules);
}

/// Draws entries of a row until one is usable; none if all have been drawn unusable.
template <class Draws>
const Action* drawAction(Draws& draws, const Action* row, std::uint32_t length) {
  const auto isUsable = [row](std::uint32_t k) { return row[k].kind != ActionKind::kNone; };
  const std::uint32_t first = draws.below(length);
  if (isUsable(first)) [[likely]]
    return row + first;
  const int other = drawAnother(draws, length, first, isUsable);
  return other == -1 ? nullptr : row + other;
}

/// An attempt at a random site of a wide lattice, with compiled rules.
template <class Context>
void tableAttempt(const Context& context, const ActionTable& actions) {
  context.draws.makeRoom();
  const std::size_t i = context.draws.below(static_cast<std::uint32_t>(context.size.imax));
  const std::size_t j = context.draws.below(static_cast<std::uint32_t>(context.size.jmax));
  const Type current = typeOf(context.lattice[i][j]);
  const std::uint32_t length = actions.length(current);
  if (length == 0) return;
  const Action* action = drawAction(context.draws, actions.row(current), length);
  if (action) perform<true>(context, *action, Site{i, j}, current);
}

struct Batch {
  Lattice& lattice;
  Size size;
  std::uint32_t numTypes;
  const ActionTable& actions;
  std::int64_t count;
  const Relaxed<std::int32_t>& state;
  std::int32_t whileState;
};

/// Returns the number of attempts made. Everything is inlined, to keep the stream's state in registers.
template <BondEnergies Energies, AcceptanceTest Acceptance>
[[gnu::flatten, gnu::noinline]] std::int64_t makeAttempts(const Batch& batch, const Energies& energies,
                                                          Acceptance& acceptance) {
  RandomSource::Stream draws(processRandomSource);
  const AttemptContext context{batch.lattice, batch.size, batch.numTypes, draws, energies, acceptance};
  std::int64_t made = 0;
  for (; made < batch.count && batch.state == batch.whileState; ++made) tableAttempt(context, batch.actions);
  return made;
}

}  // namespace

/// The compiled system, the two acceptance tests, and the state that selects between them.
struct Sweeper::Tables {
  ActionTable actions;
  EnergyTable energies;
  std::unique_ptr<FewTypes<2>> twoTypes;
  bool twoTypesAreCurrent = false;
  std::int64_t attemptsSinceChange = 0;
  CachedAcceptance cached;
  BoundedAcceptance bounded;
  bool cachePays = true;

  void read(int numTypes, const RuleArrays& rules) {
    const bool actionsChanged = actions.read(numTypes, rules);
    const bool energiesChanged = energies.read(rules);
    if (!actionsChanged && !energiesChanged) return;
    twoTypesAreCurrent = false;
    attemptsSinceChange = 0;
  }

  /// The tables of a system of two types, once they pay; none until then and for other systems.
  const FewTypes<2>* ofTwoTypes(int numTypes) {
    if (numTypes != 2 || attemptsSinceChange < kBatch) return nullptr;
    if (!twoTypes) twoTypes = std::make_unique<FewTypes<2>>(actions, energies);
    if (!std::exchange(twoTypesAreCurrent, true)) twoTypes->compute();
    return twoTypes.get();
  }
};

Sweeper::Sweeper(const SystemArrays& system) : system_(system), tables_(std::make_unique<Tables>()) {}
Sweeper::~Sweeper() = default;

void Sweeper::sweep(const Relaxed<std::int32_t>& state, std::int32_t whileState) {
  const auto attempts = [this] { return std::int64_t{system_.imax} * system_.jmax + 1; };
  for (std::int64_t k = 0; k < attempts() && state == whileState;)
    k += batch(std::min(kBatch, attempts() - k), state, whileState);
}

std::int64_t Sweeper::batch(std::int64_t count, const Relaxed<std::int32_t>& state, std::int32_t whileState) {
  const Size size = sizeOf(system_.imax, system_.jmax);
  processRandomSource.start();
  if (count < kFew || !size.isWide() || !processRandomSource.drawsItself()) {
    singleAttempt(system_);
    return 1;
  }
  const int numTypes = system_.numTypes;
  tables_->read(numTypes, system_.rules);
  const Batch batch{.lattice = system_.lattice,
                    .size = size,
                    .numTypes = static_cast<std::uint32_t>(numTypes),
                    .actions = tables_->actions,
                    .count = count,
                    .state = state,
                    .whileState = whileState};
  const auto* twoTypes = tables_->ofTwoTypes(numTypes);
  tables_->attemptsSinceChange += count;
  if (twoTypes) return makeAttempts(batch, *twoTypes, tables_->cached);
  if (!tables_->cachePays) return makeAttempts(batch, tables_->energies, tables_->bounded);
  const std::int64_t made = makeAttempts(batch, tables_->energies, tables_->cached);
  tables_->cachePays = tables_->cached.takeMisses() <= count / kAttemptsPerMiss;
  return made;
}

}  // namespace quorvane
