#pragma once

#include <string>

#include "batch/CommandLine.h"
#include "record/Record.h"

namespace quorvane {

/// The options that make the run of a record again, with the sweeps that were made and the results that it
/// has under the recorded names. Without the document. Throws RecordError for what no command line can ask
/// for.
BatchOptions recordedOptions(const Record& record);

}  // namespace quorvane
