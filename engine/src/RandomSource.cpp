#include "engine/RandomSource.h"

namespace quorvane {

void RandomSource::lookAtPlatform() {
  if (looked_) return;
  own_ = yieldsAdditiveFeedback(platform_, seed);
  looked_ = true;
}

void RandomSource::initialise() {
  lookAtPlatform();
  if (own_)
    generator_.seed(seed);
  else
    platform_.srand(static_cast<unsigned>(seed.load()));
  seed = 1;
  for (std::uint32_t k = 1; k <= kSlots; ++k) draw();
  for (std::uint32_t k = 1; k <= kSlots; ++k) v[k] = entryOf(2 * draw());
  y = entryOf(2 * draw());
  iff = 1;
}

std::uint32_t RandomSource::draw() {
  return own_ ? generator_.next() : static_cast<std::uint32_t>(platform_.rand());
}

std::uint32_t RandomSource::nextOfPlatform() {
  const Entry fresh = entryOf(2 * static_cast<std::uint32_t>(platform_.rand()));
  auto& selected = v[slotOf(y)];
  y = selected;
  selected = fresh;
  return timesTwoOf(y) >> 1;
}

}  // namespace quorvane
