#include "engine/RandomSource.h"

namespace quorvane {

void RandomSource::lookAtPlatform() {
  if (looked_) return;
  own_ = yieldsAdditiveFeedback(platform_, seed);
  looked_ = true;
}

void RandomSource::initialise() {
  lookAtPlatform();
  const std::int64_t draws = drawsMade();
  if (own_)
    generator_.seed(seed);
  else
    platform_.srand(static_cast<unsigned>(seed.load()));
  seed = 1;
  for (std::uint32_t k = 0; k < kSlots; ++k) draw();
  for (Entry& entry : v_) entry.put(2 * draw());
  selected_ = selectedBy(2 * draw());
  takenToStart_ = generator_.taken() + drawsOfPlatform_ - draws;
  iff = 1;
}

std::optional<RandomSource::State> RandomSource::state() {
  start();
  if (!own_) return std::nullopt;
  State state{.feedback = generator_.lastWords(), .table = {}, .selected = selected_};
  for (std::size_t k = 0; k < state.table.size(); ++k) state.table[k] = v_[k].timesTwo >> 1;
  return state;
}

void RandomSource::goOnFrom(const State& state) {
  generator_.goOnFrom(state.feedback);
  for (std::size_t k = 0; k < state.table.size(); ++k) v_[k].put(2 * state.table[k]);
  selected_ = state.selected;
  looked_ = true;
  own_ = true;
  iff = 1;
}

std::uint32_t RandomSource::draw() {
  return own_ ? generator_.next() : static_cast<std::uint32_t>(platform_.rand());
}

std::uint32_t RandomSource::nextOfPlatform() {
  const auto fresh = static_cast<std::uint32_t>(platform_.rand());
  Entry& entry = v_[selected_];
  const std::uint32_t value = entry.timesTwo >> 1;
  selected_ = entry.selects;
  entry.put(2 * fresh);
  drawsOfPlatform_ = drawsOfPlatform_ + 1;
  return value;
}

}  // namespace quorvane
