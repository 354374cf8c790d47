#pragma once

#include <iosfwd>

#include "batch/CommandLine.h"
#include "model/LatticeModel.h"

namespace quorvane {

/// Whether to update the traces: only pictures show them, and they take up to a third of the run's time.
Traces tracesFor(const BatchOptions& options);

/// Opens the document, makes the sweeps and writes the results. The draws are those of a fresh start only if
/// the process has not drawn before.
///
/// A failure writes one line 'quorvane-batch: "FILE": reason' to err, with "line N: " before the reason if a
/// line of the document is invalid. Nothing runs if the document is incomplete or an output cannot be
/// written. A result that fails later is dropped and the others are still written; the run ends early only if
/// all have failed. No target is ever half written; if a file with the rows so far stays behind, the line
/// about the populations names it. Calls watchStopSignals: before reading a regular file, and in any case
/// once the document is open. A run that a signal stops finishes its sweep, writes all results at that sweep,
/// and writes one line with the number of sweeps made to err.
///
/// With a checkpoint, the file is written before the first sweep, from time to time, and at the end or a
/// stop, before results are finished. A failure to write it is one line, and the run goes on.
ExitStatus runBatch(const BatchOptions& options, std::ostream& err);

/// Goes on with a run from its checkpoint: afterwards every file has the bytes that one run with all the
/// sweeps would have written. Nothing runs or changes, and one line for each reason is written to err, if the
/// checkpoint cannot be read or is in use, or if something that the run wrote is missing or was changed.
ExitStatus continueBatch(const Continuation& continuation, std::ostream& err);

}  // namespace quorvane
