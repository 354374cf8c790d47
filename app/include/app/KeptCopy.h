#pragma once

#include <filesystem>
#include <string_view>
#include <utility>

#include "document/ModelDocument.h"

namespace quorvane {

/// The copy of unsaved work of one window, in the folder of kept work. The file stays when the object is
/// destroyed.
class KeptCopy {
 public:
  /// folder: empty if it is unknown.
  explicit KeptCopy(std::filesystem::path folder) : folder_(std::move(folder)) {}
  ~KeptCopy();
  KeptCopy(const KeptCopy&) = delete;
  KeptCopy& operator=(const KeptCopy&) = delete;

  /// Writes a document under the current date and time, then removes the former copy. On failure that one
  /// stays.
  SaveResult write(std::string_view document);

  /// Removes the copy, unless its path no longer leads to the file that was written here.
  void discard();

  /// Releases the copy, which then counts as that of a closed window. The next one does not replace it.
  void leave();

  /// True while the path still leads to the file that was written last.
  bool isThere() const;

  const std::filesystem::path& folder() const { return folder_; }
  /// Empty if there is no copy.
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path folder_, path_;
  int file_ = -1;  // kept open, so that no other file gets its inode number
};

}  // namespace quorvane
