#include "engine/Sweeper.h"

#include <algorithm>

#include "ActionTable.h"
#include "Attempt.h"
#include "Chance.h"
#include "engine/f_ran0.h"

namespace quorvane {
namespace {

/// Most attempts between two looks at the rules.
constexpr std::int64_t kBatch = 4096;
/// Fewer attempts than this are not worth a look at all the rules.
constexpr std::int64_t kFew = 64;
/// When more than one attempt in so many meets a new energy difference, remembering them does not pay.
constexpr std::int64_t kAttemptsForAMiss = 32;

/// An attempt that reads everything as it stands, on a lattice of any size.
void singleAttempt(const SystemArrays& system) {
  const int imax = system.imax, jmax = system.jmax;
  const int i = fRandInt(imax) - 1;
  const int j = fRandInt(jmax) - 1;
  if (imax < 1 || jmax < 1) return;  // No lattice yet, so no site to try.
  const RuleArrays& rules = system.rules;
  fModelCycle(i, j, imax, jmax, system.lattice, system.numTypes, 0, rules.ruleType, rules.ruleDisabled,
              rules.ruleIgnoreEnergy, rules.ruleEndPoints, rules.ruleParameter, rules.ruleFac,
              rules.accessible, rules.accessibleCount, rules.immobile, rules.field, rules.masquerade,
              rules.J);
}

/// Draws entries of a row until one is usable; nothing once every one has come up unusable.
template <class Draws>
const Action* drawAction(Draws& draws, const Action* row, std::uint32_t length) {
  const auto isUsable = [row](std::uint32_t k) { return row[k].kind != ActionKind::kNone; };
  const std::uint32_t first = draws.below(length);
  if (isUsable(first)) [[likely]]
    return row + first;
  const int other = drawAnother(draws, length, first, isUsable);
  return other == -1 ? nullptr : row + other;
}

/// An attempt on a wide lattice by what the table holds.
template <class Tools>
void tableAttempt(const Tools& tools, const ActionTable& actions) {
  tools.draws.makeRoom();
  const std::size_t i = tools.draws.below(static_cast<std::uint32_t>(tools.size.imax));
  const std::size_t j = tools.draws.below(static_cast<std::uint32_t>(tools.size.jmax));
  const Type current = typeOf(tools.lattice[i][j]);
  const std::uint32_t length = actions.length(current);
  if (length == 0) return;
  const Action* action = drawAction(tools.draws, actions.row(current), length);
  if (action) perform<true>(tools, *action, Site{i, j}, current);
}

struct Batch {
  Lattice& lattice;
  Size size;
  std::uint32_t numTypes;
  const ActionTable& actions;
  const EnergyTable& energies;
  std::int64_t count;
  const Relaxed<std::int32_t>& state;
  std::int32_t whileState;
};

/// Returns how many attempts were made. All in one function, so that the draws' position stays in registers.
template <class Chance>
[[gnu::flatten, gnu::noinline]] std::int64_t makeAttempts(const Batch& batch, Chance& chance) {
  RandomSource::Stream draws(processRandomSource);
  const Tools tools{batch.lattice, batch.size, batch.numTypes, draws, batch.energies, chance};
  std::int64_t made = 0;
  for (; made < batch.count && batch.state == batch.whileState; ++made) tableAttempt(tools, batch.actions);
  return made;
}

}  // namespace

/// What a sweeper has read, and what it has found out.
struct Sweeper::Notes {
  ActionTable actions;
  EnergyTable energies;
  RememberedChance remembered;
  QuickChance quick;
  bool remembers = true;
};

Sweeper::Sweeper(const SystemArrays& system) : system_(system), notes_(std::make_unique<Notes>()) {}
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
  notes_->actions.read(numTypes, system_.rules);
  notes_->energies.read(system_.rules);
  const Batch batch{system_.lattice,
                    size,
                    static_cast<std::uint32_t>(numTypes),
                    notes_->actions,
                    notes_->energies,
                    count,
                    state,
                    whileState};
  if (!notes_->remembers) return makeAttempts(batch, notes_->quick);
  const std::int64_t made = makeAttempts(batch, notes_->remembered);
  notes_->remembers = notes_->remembered.takeMisses() <= count / kAttemptsForAMiss;
  return made;
}

}  // namespace quorvane
