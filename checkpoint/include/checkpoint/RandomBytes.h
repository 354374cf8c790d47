#pragma once

#include "checkpoint/Bytes.h"
#include "engine/RandomSource.h"

namespace quorvane {

/// The state of a random source to and from bytes. Reading throws CheckpointError for values out of range.
void transferRandom(ByteWriter& bytes, const RandomSource::State& state);
void transferRandom(ByteReader& bytes, RandomSource::State& state);

}  // namespace quorvane
