#include "engine/Sweeper.h"

#include <algorithm>

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
/// Tables by neighbourhood pay if the rules do not change for at least this many attempts for each
/// neighbourhood.
constexpr std::int64_t kAttemptsPerNeighbourhood = 16;

static_assert(kMostDrawsOfAnAttempt <= RandomSource::Stream::kRoom);

/// An attempt at a random site, on a lattice of any size.
void singleAttempt(const SystemArrays& system) {
  const int imax = system.imax, jmax = system.jmax;
  const int i = fRandInt(imax) - 1;
  const int j = fRandInt(jmax) - 1;
  if (imax < 1 || jmax < 1) return;  // no lattice yet
  attemptAt(siteAt(i, j), system.lattice, sizeOf(imax, jmax), system.numTypes, system.rules);
}

/// The usable entry of a row at a position, or one that is drawn instead; none if all have been drawn
/// unusable.
template <class Draws>
const Action* usableAction(Draws& draws, const Action* row, std::uint32_t length, std::uint32_t position) {
  const auto isUsable = [row](std::uint32_t k) { return row[k].kind != ActionKind::kNone; };
  if (isUsable(position)) [[likely]]
    return row + position;
  const int other = drawAnother(draws, length, position, isUsable);
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
  const std::uint32_t position = context.draws.below(length);
  if constexpr (kHasTables<Context>)
    if (flippedByTable(context, position, Site{i, j}, current)) return;
  const Action* action = usableAction(context.draws, actions.row(current), length, position);
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
  std::unique_ptr<FewTypes<2>> ofTwo;
  std::unique_ptr<FewTypes<3>> ofThree;
  /// Tables by neighbourhood pay only if the rules stay as they are.
  std::int64_t attemptsSinceChange = 0;
  CachedAcceptance cached;
  BoundedAcceptance bounded;
  bool cachePays = true;

  void read(int numTypes, const RuleArrays& rules) {
    const bool actionsChanged = actions.read(numTypes, rules);
    const bool energiesChanged = energies.read(rules);
    if (!actionsChanged && !energiesChanged) return;
    ofTwo.reset();
    ofThree.reset();
    attemptsSinceChange = 0;
  }

  /// Whether tables by neighbourhood are to be used. The first call makes them.
  template <Type kTypes>
  bool have(std::unique_ptr<FewTypes<kTypes>>& tables, std::uint32_t numTypes) const {
    if (numTypes != kTypes ||
        attemptsSinceChange < kAttemptsPerNeighbourhood * FewTypes<kTypes>::Code::kCount)
      return false;
    if (!tables) tables = std::make_unique<FewTypes<kTypes>>(actions, energies);
    return true;
  }

  std::int64_t make(const Batch& batch) {
    if (have(ofTwo, batch.numTypes)) return make(batch, *ofTwo);
    if (have(ofThree, batch.numTypes)) return make(batch, *ofThree);
    return make(batch, energies);
  }

  template <BondEnergies Energies>
  std::int64_t make(const Batch& batch, const Energies& ofSites) {
    if (!cachePays) return makeAttempts(batch, ofSites, bounded);
    const std::int64_t made = makeAttempts(batch, ofSites, cached);
    cachePays = cached.takeMisses() <= batch.count / kAttemptsPerMiss;
    return made;
  }
};

Sweeper::Sweeper(const SystemArrays& system) : system_(system), tables_(std::make_unique<Tables>()) {}
Sweeper::~Sweeper() = default;
Sweeper::Sweeper(Sweeper&&) noexcept = default;

void Sweeper::sweep(const Relaxed<std::int32_t>& state, std::int32_t whileState) {
  const auto attempts = [this] { return std::int64_t{system_.imax} * system_.jmax + 1; };
  for (std::int64_t k = 0; k < attempts() && state == whileState;)
    k += batch(std::min(kBatch, attempts() - k), state, whileState);
}

void Sweeper::attempts(std::int64_t count, const Relaxed<std::int32_t>& state, std::int32_t whileState) {
  while (count > 0 && state == whileState) count -= batch(std::min(kBatch, count), state, whileState);
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
  const std::int64_t made = tables_->make(batch);
  tables_->attemptsSinceChange += made;
  return made;
}

}  // namespace quorvane
