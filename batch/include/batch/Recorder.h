#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>

#include "batch/CommandLine.h"
#include "batch/FrameFolder.h"
#include "batch/Messages.h"
#include "batch/RowWriter.h"
#include "output/PopulationTable.h"

namespace quorvane {

/// The picture that the options ask for, as the bytes of a PNG file.
std::string pictureOf(const LatticeModel& model, const BatchOptions& options);

/// What is recorded of a run while it goes on: rows of populations and frames, both of the same sweeps.
/// Frames are on the disk at once. Rows wait a tenth of a second at most, and never more of them than some
/// ten kilobytes, so a long run keeps no more in memory than a short one. A file of rows takes the place of
/// its target only at the end of the run; a run that is killed later than at its start leaves it where it
/// grew, with the rows so far, and so do rows that fail. What fails is told at once and given up; the other
/// goes on.
class Recorder {
 public:
  /// Makes the folder of the frames and the file of the rows.
  Recorder(const LatticeModel& model, const BatchOptions& options, Messages& messages);

  void record(std::int64_t sweep);
  /// To be called every few sweeps: writes the rows that have waited long enough.
  void keepUp();
  /// Writes the rows that are left, and puts their file in its place.
  void finish();

  /// False once nothing is recorded any more.
  bool isRecording() const { return frames_ || rows_; }

 private:
  template <typename Work>
  void withFrames(const Work& work);
  template <typename Work>
  void withRows(const Work& work);
  bool rowsAreDue() const;
  void writeRows();
  std::string whereRowsAre();

  const LatticeModel& model_;
  const BatchOptions& options_;
  Messages& messages_;
  PopulationTable table_;
  std::optional<FrameFolder> frames_;
  std::optional<RowWriter> rows_;
  std::int64_t lastSweep_ = 0;
  std::chrono::steady_clock::time_point nextWriting_;
};

}  // namespace quorvane
