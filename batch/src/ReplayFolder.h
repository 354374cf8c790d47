#pragma once

#include <filesystem>
#include <string>

namespace quorvane {

/// A new folder for temporary files, where TMPDIR says or in /tmp, private to the user. It is removed with
/// everything in it at the end.
class ReplayFolder {
 public:
  /// Throws BatchFailure.
  ReplayFolder();
  ~ReplayFolder();
  ReplayFolder(const ReplayFolder&) = delete;
  ReplayFolder& operator=(const ReplayFolder&) = delete;

  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

}  // namespace quorvane
