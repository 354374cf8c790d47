#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "batch/Messages.h"
#include "batch/Recorder.h"
#include "batch/RunSoFar.h"
#include "checkpoint/CheckpointFile.h"

namespace quorvane {

/// Writes the checkpoints of a run, from each of which it can be continued.
///
/// None is written any more once a result that is recorded during the run has failed: the last one stays, and
/// from there the run can be continued with all its results.
class Checkpoints {
 public:
  /// state: the options, and what is carried from one checkpoint to the next. file: null for no checkpoints.
  /// All must outlive the object.
  Checkpoints(const LatticeModel& model, const RunSoFar& state, CheckpointFile* file, Messages& messages);

  /// Each checkpoint carries the text that make then gives.
  void carry(std::function<std::string()> make) { carried_ = std::move(make); }

  /// True if the time between two checkpoints has passed since the last one.
  bool areDue() const;

  /// Puts the records on the disk, and then the checkpoint. A failure is reported once, not each time.
  void write(Recorder& recorder, std::int64_t done);

  /// Writes the last checkpoint again with the lengths of the finished results, so that a later change of
  /// these is noticed.
  void writeFinished(const Recorder& recorder);

 private:
  using Clock = std::chrono::steady_clock;

  void replace(const RunSoFar& state);
  void report(const std::string& reason);

  const LatticeModel& model_;
  RunSoFar state_;
  CheckpointFile* file_;
  Messages& messages_;
  std::function<std::string()> carried_;
  Clock::time_point last_;
  std::string reported_;
  bool isCurrent_ = false;  ///< all results were whole at the last checkpoint
};

}  // namespace quorvane
