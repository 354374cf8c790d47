#pragma once

#include "checkpoint/Bytes.h"
#include "model/LatticeModel.h"

namespace quorvane {

/// Every field of a model to and from bytes, except sites and traces outside its lattice and traces of types
/// that are not in use, which no run reads. Main thread only, while no run loop is active.
///
/// Reading throws CheckpointError for a value that could lead outside an array, and then the model must not
/// be used. A model that was read draws, sweeps and shows as the one that was written; only the schedule of
/// checks for small traces, which changes no value, begins anew.
void transferModel(ByteWriter& bytes, const LatticeModel& model);
void transferModel(ByteReader& bytes, LatticeModel& model);

}  // namespace quorvane
