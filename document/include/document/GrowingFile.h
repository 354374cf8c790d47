#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "document/Outlet.h"

namespace quorvane {

/// A file that grows beside its target and takes the target's place once it is whole.
///
/// It is named after the target and the process, ".counts.csv.quorvane-4711.partial" beside "counts.csv"; a
/// target's name is cut where the whole would be too long for the file system. Only its owner may read it
/// until it is whole. Symbolic links are followed. Other hard links of the target keep the old content. A
/// device or a pipe has no such file: it is opened once and written to directly. For one thread.
class GrowingFile {
 public:
  explicit GrowingFile(MayWait mayWait = waitForEver) : mayWait_(std::move(mayWait)) {}
  /// Removes the file unless it took the target's place or is kept.
  ~GrowingFile();
  GrowingFile(const GrowingFile&) = delete;
  GrowingFile& operator=(const GrowingFile&) = delete;

  /// Makes the file, empty. Once only. Fails where the target is write-protected, and where anything shows
  /// already that would keep the file from taking its place.
  std::error_code open(const std::filesystem::path& target);

  /// Hands the text to the system, so that it stays whatever becomes of this process. On failure the file
  /// holds what it held before.
  std::error_code append(std::string_view text);

  /// Takes the target's place once everything, and then the folder, has reached the disk. The target keeps
  /// its owner, group and permissions; where this process may not give them to a new file, the text is copied
  /// into the target once it is safe on the disk. On failure the target is as it was, except that a copy that
  /// fails half way leaves this file behind with everything.
  std::error_code finish();

  /// True if finish has copied into the target.
  bool wroteInPlace() const { return wroteInPlace_; }

  /// Leaves the file where it is if it does not take the target's place.
  void keep() { kept_ = true; }
  bool isKept() const { return kept_; }

  /// Where the file is; empty if there is none, or none any more.
  const std::filesystem::path& partial() const { return partial_; }

 private:
  std::error_code create();
  std::error_code replaceTarget();
  std::error_code copyIntoTarget();
  std::error_code close();

  MayWait mayWait_;
  std::filesystem::path target_;
  std::filesystem::path partial_;
  std::int64_t size_ = 0;
  int file_ = -1;
  bool kept_ = false;
  bool wroteInPlace_ = false;
};

}  // namespace quorvane
