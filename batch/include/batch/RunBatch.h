#pragma once

#include <iosfwd>

#include "batch/CommandLine.h"
#include "model/LatticeModel.h"

namespace quorvane {

/// Only pictures show the traces, so a run without any leaves them alone: they take up to a third of its
/// time.
Traces tracesFor(const BatchOptions& options);

/// Opens the document, makes the sweeps and writes what was asked for. Draws are those of a fresh start of
/// the process only if nothing has drawn before.
///
/// A failure writes one line 'quorvane-batch: "FILE": why' to err, with "line N: " before the why where a
/// line of the document is at fault. Nothing runs if the document is not whole or an output cannot be
/// written. A result that fails later is given up and the others are still written; the run ends early only
/// if nothing is left to be had from it. No file that was asked for is ever half written; the line about rows
/// of populations names the file with the rows so far, where one stays behind. While a file is read, and
/// once any document is open, watchStopSignals holds: a run that a signal stops ends with the sweep it is in,
/// writes what was asked for as it stands and says in one line to err how many sweeps it made.
ExitStatus runBatch(const BatchOptions& options, std::ostream& err);

}  // namespace quorvane
