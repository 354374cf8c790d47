#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// Takes bytes as a list of observables, shares to fill with, sides and settings, each ended by a NUL, for a
/// small model whose names are awkward, and checks the invariants: a refusal is one line that names its
/// option; what is accepted leaves a model that can be swept, saved and opened; a setting that is refused
/// changes nothing; rows have as many values as columns, and a stored state goes on with the same rows.
/// Returns what is wrong, or nothing.
std::string checkStart(std::string_view text);

}  // namespace quorvane
