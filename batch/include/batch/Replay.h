#pragma once

#include <filesystem>
#include <iosfwd>

#include "batch/CommandLine.h"

namespace quorvane {

/// Makes the run of a record again, in a temporary folder that is removed at the end, and prints for each of
/// its results to standard output whether it is the same. kExitDone only if all are.
///
/// The sweeps are those that were made, so the record of a run that was stopped gives the same results. A
/// failure writes one line to err: a record that cannot be read, a document that is missing or has changed,
/// with which nothing runs, or no room for the results. A record of another build gives a note there. Names
/// of results in the record are only printed: nothing is read or written there. Calls watchStopSignals.
ExitStatus replay(const std::filesystem::path& record, std::ostream& err);

}  // namespace quorvane
