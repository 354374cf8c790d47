#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include "checkpoint/CheckpointError.h"

namespace quorvane {

/// The file of the checkpoints of one run, each of which replaces the one before. It is locked during the
/// lifetime of the object, so that no two runs use it at once. For one thread.
class CheckpointFile {
 public:
  /// Touches nothing.
  explicit CheckpointFile(std::filesystem::path path) : path_(std::move(path)) {}
  ~CheckpointFile();
  CheckpointFile(const CheckpointFile&) = delete;
  CheckpointFile& operator=(const CheckpointFile&) = delete;

  /// Locks the file and returns the content that was written last. Throws CheckpointError.
  std::string read();

  /// Locks the file if there is one. Throws CheckpointError if another process has locked it.
  void claim();

  /// Replaces the file by one with this content, as writeFileAtomically does: it is the whole old one until
  /// the new one is whole and on the disk. Throws CheckpointError. Returns a note for the user, mostly empty.
  std::string write(std::string_view content);

  const std::filesystem::path& path() const { return path_; }

 private:
  /// Opens the file and locks it; -1 if it cannot be opened, with errno.
  int openLocked() const;
  void hold(int file);

  std::filesystem::path path_;
  int lock_ = -1;
};

}  // namespace quorvane
