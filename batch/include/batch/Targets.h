#pragma once

#include <optional>
#include <string>

#include "batch/CommandLine.h"

namespace quorvane {

/// A conflict between the requested files, as one line; none if there is none: the same target twice, also
/// under different names, a file in place of the folder of the frames, a file named like a frame in it, or
/// the document itself as a target other than --output. The file of the checkpoints is a target, too.
std::optional<std::string> conflictOf(const BatchOptions& options);

}  // namespace quorvane
