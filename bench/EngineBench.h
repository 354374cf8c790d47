#pragma once

namespace quorvane {

/// Draws and attempts of the engine and of its plainest form: "Draw", "ReferenceDraw", and for every typical
/// system "Attempt/" and "ReferenceAttempt/" with its name. Times are per draw and per attempt.
void registerEngineBenchmarks();

/// The trace update and the sweep of a model of two types: "TraceUpdate", "TraceUpdateOfVanishedType" (whose
/// trace is below the normal numbers) and "Sweep". Times are per sweep.
void registerTraceBenchmarks();

/// The document of the largest system: "WriteText" and "ReadText" in memory, "Save" and "Open" with a file.
void registerDocumentBenchmarks();

}  // namespace quorvane
