#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "batch/CommandLine.h"
#include "batch/FrameFolder.h"
#include "batch/Messages.h"
#include "batch/RecordedRows.h"
#include "batch/RunSoFar.h"
#include "batch/WrittenBefore.h"
#include "measure/Measurements.h"
#include "output/PopulationTable.h"

namespace quorvane {

/// The picture that the options describe, as the bytes of a PNG file.
std::string pictureOf(const LatticeModel& model, const BatchOptions& options);

/// Records rows of populations, rows of observables, lattices and frames during a run, all at the same
/// sweeps. Frames are written at once. A result that fails is reported at once and dropped; the others
/// continue.
class Recorder {
 public:
  /// Makes the folder of the frames and the files of the rows. Throws MeasureError, before any of it, for
  /// observables that the model has not.
  Recorder(const LatticeModel& model, const BatchOptions& options, Messages& messages);
  /// Goes on behind what was found. Throws MeasureError also for a state of observables that cannot be one.
  Recorder(const LatticeModel& model, const RunSoFar& state, WrittenBefore before, Messages& messages);

  /// Records a sweep that is a multiple of K, unless that was done before the run was interrupted.
  void recordMultiple(std::int64_t sweep);
  /// Records the last sweep, unless it is a multiple of K. Call settle before it, since a longer run has no
  /// such record.
  void recordLast(std::int64_t sweep);
  /// Writes buffered rows and puts all records on the disk. False if something that was to be recorded
  /// failed, now or before; then the state is not set.
  bool settle(RunSoFar& state);

  /// Notes the lengths of finished targets in a state that settle has set.
  void noteFinished(RunSoFar& state) const;

  /// Writes buffered rows that are due. Call it every few sweeps.
  void keepUp();
  /// Writes the remaining rows, and replaces the targets with their files.
  void finish();
  /// What was written, after finish, without the results that are dropped.
  std::vector<RecordedOutput> outputs();

  /// False if no row or frame is recorded, because none was asked for or all failed.
  bool isRecording() const {
    return frames_ || populations_.isRecording() || measured_.isRecording() || lattices_.isRecording();
  }

 private:
  Recorder(const LatticeModel& model, const BatchOptions& options, const RunSoFar* state,
           WrittenBefore before, Messages& messages);
  template <typename Work>
  void withFrames(const Work& work);
  void record(std::int64_t sweep);
  bool isWhole() const;

  const LatticeModel& model_;
  const BatchOptions& options_;
  Messages& messages_;
  std::optional<Measurements> measurements_;
  PopulationTable table_;
  std::optional<FrameFolder> frames_;
  RecordedRows populations_, measured_, lattices_;
  std::uint64_t records_ = 0;  ///< of multiples of K
};

}  // namespace quorvane
