#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "batch/RunSoFar.h"
#include "batch/WrittenBefore.h"
#include "checkpoint/Digest.h"
#include "document/GrowingFile.h"
#include "record/Fingerprint.h"

namespace quorvane {

/// Writes rows as they are made: to standard output, a device or pipe, or a GrowingFile that replaces its
/// target at the end. No signal ends the process in the middle of a row of a file.
class RowWriter {
 public:
  /// Makes the growing file. Throws BatchFailure, as write and finish do.
  /// beginning: bytes at the start of the file that will be written over.
  explicit RowWriter(std::filesystem::path target, std::int64_t beginning = 0);
  /// Goes on behind rows that were found: in their growing file, or in a copy of them.
  RowWriter(std::filesystem::path target, RowsBefore before);

  /// Writes whole rows, unbuffered.
  void write(std::string_view rows);

  /// Writes over the beginning of the growing file.
  void overwriteBeginning(std::string_view text);

  /// Replaces the target with the growing file, and removes partial files of killed runs. Returns a note like
  /// writeOutput.
  std::string finish();

  /// What was written, after finish: a file is read again, since its beginning may have been overwritten.
  /// Throws std::system_error.
  Fingerprint content() const;

  /// Puts the growing file on the disk and keeps it. Returns what is needed to go on with it.
  WrittenRows settle();

  /// Keeps the growing file even if the run fails or is killed.
  void keep() { file_.keep(); }

  /// Bytes written to the file, and found in it.
  std::int64_t size() const { return size_; }

  /// True while there is a growing file.
  bool isGrowing() const { return !file_.partial().empty(); }

  /// The growing file if it is kept; else empty.
  std::filesystem::path kept() const { return file_.isKept() ? file_.partial() : std::filesystem::path(); }

 private:
  void require(std::error_code error) const;
  void copyFrom(const std::filesystem::path& source);

  std::filesystem::path target_;
  GrowingFile file_;
  bool isFile_ = false;
  /// Of what went to a stream.
  Fingerprinting streamed_;
  std::int64_t beginning_ = 0;
  std::int64_t size_ = 0;
  DigestOf digest_;  ///< without the beginning
};

}  // namespace quorvane
