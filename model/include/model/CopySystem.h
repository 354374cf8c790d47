#pragma once

#include "model/LatticeModel.h"

namespace quorvane {

/// Makes a stopped model the same system as another one: every field but the traces, which stay as they are,
/// and the view's. Sites outside the other's lattice stay too. Draws nothing. Much faster than reading a
/// document again, for programs that make many runs of one.
void copySystem(const ModelState& from, ModelState& to);

}  // namespace quorvane
