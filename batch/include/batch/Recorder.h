#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "batch/CommandLine.h"
#include "batch/FrameFolder.h"
#include "output/PopulationTable.h"

namespace quorvane {

/// The picture that the options ask for, as the bytes of a PNG file.
std::string pictureOf(const LatticeModel& model, const BatchOptions& options);

/// What is recorded of a run while it goes on: rows of populations and frames, both of the same sweeps.
/// Frames are on the disk at once. Rows for standard output wait a tenth of a second at most, those for a
/// file until it is written as a whole.
class Recorder {
 public:
  /// Makes the folder of the frames. Throws BatchFailure, as record does, where something cannot be written.
  Recorder(const LatticeModel& model, const BatchOptions& options);

  void record(std::int64_t sweep);
  /// To be called every few sweeps: shows the rows that have waited long enough.
  void keepUp();
  /// Writes the rows that are left.
  void finish();

 private:
  const LatticeModel& model_;
  const BatchOptions& options_;
  std::optional<FrameFolder> frames_;
  std::optional<PopulationTable> table_;
  std::chrono::steady_clock::time_point nextStreaming_;
};

}  // namespace quorvane
