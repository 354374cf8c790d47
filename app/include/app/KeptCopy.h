#pragma once

#include <filesystem>
#include <string_view>
#include <utility>

#include "document/ModelDocument.h"

namespace quorvane {

/// The one copy of unsaved work that a window has in the folder of kept work. It stays when the object goes.
class KeptCopy {
 public:
  /// An empty folder is one that is not known.
  explicit KeptCopy(std::filesystem::path folder) : folder_(std::move(folder)) {}
  ~KeptCopy();
  KeptCopy(const KeptCopy&) = delete;
  KeptCopy& operator=(const KeptCopy&) = delete;

  /// Writes a document under the present date and time, and then removes the former copy. On failure that one
  /// stays.
  SaveResult write(std::string_view document);

  /// Removes the copy, unless it is no longer the file that was written here.
  void discard();

  /// Leaves the copy as it is, as that of a window that is gone. The next one replaces nothing.
  void leave();

  /// True while the file that was written last is where it was.
  bool isThere() const;

  const std::filesystem::path& folder() const { return folder_; }
  /// Empty if there is no copy.
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path folder_, path_;
  int file_ = -1;  // open as long as the copy is ours, so that nobody else's file gets its number
};

}  // namespace quorvane
