#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "batch/Messages.h"
#include "batch/RowWriter.h"

namespace quorvane {

/// What precedes the name of the kept file at the end of the message about rows that failed.
inline constexpr const char* kRowsSoFar = " (the rows so far are in ";

/// The rows of one result of a run. They are buffered for a tenth of a second and some 64 kB at most, so
/// memory does not grow with the length of the run. Their file replaces its target only at the end of the
/// run; if the run is killed or a row fails after the start, the partial file stays with the rows so far. A
/// failure is reported at once, and then the result is dropped.
class RecordedRows {
 public:
  /// Gives the beginning of a file for a number of rows, always of the same length.
  using Beginning = std::function<std::string(std::int64_t rows)>;

  /// Makes the growing file, if there is a target, or goes on behind rows that were found. With a beginning,
  /// that is written again whenever rows are; then the file cannot be a pipe or a device.
  RecordedRows(std::optional<std::filesystem::path> target, Messages& messages,
               std::optional<RowsBefore> before, Beginning beginning = {});

  /// Adds the rows that make returns, unless the result is dropped or there is none.
  void add(std::int64_t sweep, const std::function<std::string()>& make);
  /// Writes the buffered rows if they are due. Call it every few sweeps.
  void keepUp();
  /// Writes the remaining rows, and replaces the target with their file.
  void finish();

  /// Writes the buffered rows and puts them on the disk; what is needed to go on with them. None if there is
  /// no target, or it has failed.
  std::optional<WrittenRows> settle();

  /// The length of the target, or -1 if it is not finished.
  std::int64_t finishedSize() const { return finishedSize_; }

  bool isRecording() const { return writer_.has_value(); }
  /// True if there were rows when this object was made.
  bool continues() const { return continues_; }
  /// False if something was to be recorded and is not any more.
  bool isWhole() const { return writer_.has_value() == target_.has_value(); }

  /// What was written, after finish; none if the result is dropped.
  std::optional<Fingerprint> content();

 private:
  void guarded(const std::function<void()>& work);
  bool areDue() const;
  void write();
  std::string whereTheyAre();

  std::optional<std::filesystem::path> target_;
  Messages& messages_;
  Beginning beginning_;
  std::optional<RowWriter> writer_;
  std::string buffer_;
  std::int64_t lastSweep_ = 0, numRows_ = 0;
  std::int64_t finishedSize_ = -1;
  bool continues_ = false;
  std::chrono::steady_clock::time_point nextWriting_;
};

}  // namespace quorvane
