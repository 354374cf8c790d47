#pragma once

#include <optional>
#include <string>

#include "batch/CommandLine.h"

namespace quorvane {

/// Why the files that are asked for cannot all be had, as one line; none if they can: one target named twice
/// by whatever names, a file where the folder of the frames is to be, one among the frames, or the document
/// itself as the target of anything but --output.
std::optional<std::string> conflictOf(const BatchOptions& options);

}  // namespace quorvane
