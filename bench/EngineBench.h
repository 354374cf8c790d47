#pragma once

namespace quorvane {

/// Draws and attempts of the engine and of its plainest form: "Draw", "ReferenceDraw", and for every typical
/// system "Attempt/" and "ReferenceAttempt/" with its name. Times are per draw and per attempt.
void registerEngineBenchmarks();

/// Whole sweeps of the run loop with the traces of all types: "Sweep/" with the name of a typical system, its
/// time per attempt; "SweepWithoutTraces/" the same where the traces are left alone. And the traces of two
/// types alone, once a sweep: "TraceUpdate" and "TraceUpdateOfVanishedType", whose trace is below the normal
/// numbers.
void registerTraceBenchmarks();

/// The document of the largest system: "WriteText" and "ReadText" in memory, "Save" and "Open" with a file.
void registerDocumentBenchmarks();

}  // namespace quorvane
