#pragma once

namespace quorvane {

/// Draws and attempts of the engine and of the literal engine: "Draw", "ReferenceDraw", and for every typical
/// system "Attempt/" and "ReferenceAttempt/" with its name. Times are per draw and per attempt.
void registerEngineBenchmarks();

/// Whole sweeps of the run loop with the traces of all types: "Sweep/" with the name of a typical system;
/// "SweepWithoutTraces/" without updating the traces; times are per attempt. And one update of the traces of
/// two types: "TraceUpdate" and "TraceUpdateOfVanishedType", where one trace is denormal.
void registerTraceBenchmarks();

/// The document of the largest system: "WriteText" and "ReadText" in memory, "Save" and "Open" with a file.
void registerDocumentBenchmarks();

}  // namespace quorvane
