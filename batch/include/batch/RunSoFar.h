#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "batch/CommandLine.h"
#include "checkpoint/Digest.h"
#include "engine/RandomSource.h"
#include "model/LatticeModel.h"

/// Where a run stands between two sweeps: all that a continuation needs beside the model and the random
/// source.
namespace quorvane {

/// The rows of a result so far, all of which every longer run writes too.
struct WrittenRows {
  std::string partial;         ///< the name of their growing file, which is beside the target
  std::int64_t bytes = 0;      ///< the length of the file with them
  std::int64_t beginning = 0;  ///< so many of these at the start change with each row
  std::int64_t finished = -1;  ///< the length of the target, once it is finished
  Digest digest = {};          ///< of the bytes behind the beginning
};

/// The frames of a run so far, from number 0 on.
struct WrittenFrames {
  std::int64_t number = 0;
  std::int64_t digits = 0;  ///< of the number in a name
  Digest digest = {};       ///< of the contents of all files in their order
};

struct RunSoFar {
  BatchOptions options;  ///< with absolute paths
  std::int64_t sweepsDone = 0;
  std::uint64_t records = 0;  ///< rows of sweeps 0, K, 2K, ... that were recorded
  std::optional<WrittenRows> populations, measure, lattices;
  std::optional<WrittenFrames> frames;
  std::string measurements;  ///< as of Measurements::state
  /// What another part of the program wants to have back in the continuation.
  std::string carried;
};

/// The options with absolute paths, so that a continuation finds the files from another current folder.
BatchOptions withAbsolutePaths(const BatchOptions& options);

/// All of it as the content of a checkpoint.
std::string bytesOf(const RunSoFar& state, const LatticeModel& model, const RandomSource::State& random);

/// Reads such a content. Throws CheckpointError if it is damaged; then the model must not be used.
RunSoFar runSoFarIn(std::string_view content, LatticeModel& model, RandomSource::State& random);

}  // namespace quorvane
