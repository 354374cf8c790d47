#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "document/Outlet.h"

namespace quorvane {

/// A file that is written beside its target and replaces it once complete.
///
/// It is named after the target and the process, ".counts.csv.quorvane-4711.partial" beside "counts.csv"; the
/// target's name is shortened in it if the whole would be too long for the file system. Only its owner may
/// read it until it is complete. Symbolic links are followed. Other hard links of the target keep the old
/// content. For a device or a pipe there is no such file: it is opened once and written directly. For one
/// thread.
class GrowingFile {
 public:
  explicit GrowingFile(MayWait mayWait = waitForEver) : mayWait_(std::move(mayWait)) {}
  /// Removes the file unless it has replaced the target or is kept.
  ~GrowingFile();
  GrowingFile(const GrowingFile&) = delete;
  GrowingFile& operator=(const GrowingFile&) = delete;

  /// Creates the empty file. Only once. Fails if the target is write-protected, or for any other reason known
  /// by now that would prevent replacing it.
  std::error_code open(const std::filesystem::path& target);

  /// Goes on with a file that another process left, in place of open: takes the growing file of this name
  /// beside the target, and cuts it to a size, which it must have at least. Fails if it is in use, or has
  /// not the name of such a file, and then it is as before.
  std::error_code openAgain(const std::filesystem::path& target, const std::string& name, std::int64_t size);

  /// Writes the text, unbuffered, so that it survives the process. On failure the file keeps its former
  /// content.
  std::error_code append(std::string_view text);

  /// Writes the text over the beginning of the file, which must be as long at least. Not for a device or a
  /// pipe.
  std::error_code overwriteBeginning(std::string_view text);

  /// Synchronises the file and its name to the disk, so that it survives a loss of power.
  std::error_code sync();

  /// A further descriptor of the file, which also holds its lock. The caller closes it. -1 on failure.
  int duplicate() const;

  /// Replaces the target after synchronising the file, and then synchronises the folder. The target keeps its
  /// owner, group and permissions; if this process may not set these on a new file, the text is copied into
  /// the target once it is safe on the disk. On failure the target is unchanged, except that a copy that
  /// fails half way leaves this file behind with the whole text.
  std::error_code finish();

  /// True if finish has copied the text into the target.
  bool wroteInPlace() const { return wroteInPlace_; }

  /// Keeps the file if it does not replace the target.
  void keep() { kept_ = true; }
  bool isKept() const { return kept_; }

  /// The path of the file; empty if there is none (any more).
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
