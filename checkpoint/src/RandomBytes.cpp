#include "checkpoint/RandomBytes.h"

namespace quorvane {

void transferRandom(ByteWriter& bytes, const RandomSource::State& state) {
  bytes.value(state.feedback);
  bytes.value(state.table);
  bytes.value(state.selected);
}

void transferRandom(ByteReader& bytes, RandomSource::State& state) {
  constexpr std::uint32_t largest = 0x7fffffff;
  bytes.value(state.feedback);
  for (std::uint32_t& value : state.table) bytes.within(value, 0, largest);
  bytes.within(state.selected, 0, RandomSource::kSlots - 1);
}

}  // namespace quorvane
