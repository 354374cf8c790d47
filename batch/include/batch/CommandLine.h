#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "batch/Start.h"
#include "output/LatticePicture.h"

namespace quorvane {

/// Exit statuses of quorvane-batch.
enum ExitStatus : int {
  kExitDone = 0,
  kExitFailed = 1,         ///< the run or a file failed
  kExitUsage = 2,          ///< the command line is wrong
  kExitHungUp = 129,       ///< stopped by SIGHUP; what was asked for is written
  kExitInterrupted = 130,  ///< stopped by SIGINT; what was asked for is written
  kExitTerminated = 143,   ///< stopped by SIGTERM; what was asked for is written
};

/// Seconds between two checkpoints of a run, if the command line does not say.
inline constexpr double kDefaultCheckpointEvery = 300;

/// A parsed command line. A path "-" is standard input or output; at most one result goes there.
struct BatchOptions {
  std::filesystem::path document;
  Start start;
  std::int64_t sweeps = 0;                           ///< 0 or more
  std::optional<std::filesystem::path> output;       ///< the document after the run
  std::optional<std::filesystem::path> populations;  ///< sites per type as CSV
  std::optional<std::filesystem::path> measure;      ///< observables as CSV
  std::string observables;                           ///< the list of them, empty without measure
  std::optional<std::filesystem::path> lattices;     ///< the sites as a NumPy array, never "-"
  std::optional<std::filesystem::path> frames;       ///< the folder of numbered PNGs, never "-"
  std::int64_t every = 1;                            ///< sweeps between rows and between frames, 1 or more
  std::optional<std::filesystem::path> picture;      ///< the lattice after the run as PNG
  std::optional<std::filesystem::path> record;       ///< what made the results, as JSON
  int scale = kDefaultScale;                         ///< pixels per site in pictures, 1 to kMaxScale
  bool trace = false;                                ///< pictures show each type's trace beside the lattice
  std::optional<std::filesystem::path> checkpoint;   ///< from which the run can be continued; never "-"
  double checkpointEvery = kDefaultCheckpointEvery;  ///< seconds between two, more than 0
  StartWords startWords;                             ///< what start was read from, for the record
  std::vector<std::string> commandLine;              ///< as it was typed, for the record
};

/// A command line that runs a record again.
struct ReplayRequest {
  std::filesystem::path record;
};

/// The continuation of a run from its checkpoint.
struct Continuation {
  std::filesystem::path checkpoint;
  std::optional<std::int64_t> sweeps;  ///< counted from the beginning of the run; else as many as before
};

using Command = std::variant<BatchOptions, Continuation, ReplayRequest, ExitStatus>;

/// The options of a command line, or the status to exit with if there is nothing to run: kExitDone after
/// --help and --version, which print to standard output, else kExitUsage after one line on standard error.
Command parseCommandLine(int argc, const char* const* argv);

}  // namespace quorvane
