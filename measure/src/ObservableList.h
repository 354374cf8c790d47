#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "measure/Observable.h"

namespace quorvane {

/// Makes the observables of a list such as "counts,order:solvent:#2" for snapshots like the first.
///
/// Throws MeasureError that begins with the entry's place in the list.
std::vector<std::unique_ptr<Observable>> observablesOf(std::string_view list, const Snapshot& first);

}  // namespace quorvane
