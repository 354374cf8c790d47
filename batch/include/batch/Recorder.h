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

/// The picture that the options describe, as the bytes of a PNG file.
std::string pictureOf(const LatticeModel& model, const BatchOptions& options);

/// Records rows of populations and frames during a run, both at the same sweeps. Frames are written at once.
/// Rows are buffered for a tenth of a second and some 64 kB at most, so memory does not grow with the length
/// of the run. The file of rows replaces its target only at the end of the run; if the run is killed or a row
/// fails after the start, the partial file stays with the rows so far. A result that fails is reported at
/// once and dropped; the other continues.
class Recorder {
 public:
  /// Makes the folder of the frames and the file of the rows.
  Recorder(const LatticeModel& model, const BatchOptions& options, Messages& messages);

  void record(std::int64_t sweep);
  /// Writes the buffered rows if they are due. Call it every few sweeps.
  void keepUp();
  /// Writes the remaining rows, and replaces the target with their file.
  void finish();

  /// False if no row or frame is recorded, because none was asked for or all failed.
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
