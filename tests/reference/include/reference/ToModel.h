#pragma once

#include <memory>

#include "model/LatticeModel.h"
#include "reference/System.h"

namespace quorvane::reference {

/// A model with the fields of a system, in run state 2, with traces of 0.
std::unique_ptr<LatticeModel> toModel(const System& system);

}  // namespace quorvane::reference
