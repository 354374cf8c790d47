#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <optional>
#include <system_error>

namespace quorvane {

/// The file to be written.
struct Target {
  std::filesystem::path path;  ///< symbolic links followed
  std::optional<struct stat> existing;

  bool isDevice() const { return existing && !S_ISREG(existing->st_mode); }
  mode_t permissions() const { return existing->st_mode & 07777; }
};

/// Resolves a path by the system's own rules for links, including its protection of links in shared folders.
/// Returns why the target cannot be written, as far as known: a folder, a mount point, a write-protected
/// file, a name that is too long.
std::error_code findTarget(const std::filesystem::path& path, Target& target);

/// The status of the file at a path; none if there is none.
std::error_code findStatus(const std::filesystem::path& path, std::optional<struct stat>& status);

/// The limit for file names in the folder, in bytes.
std::size_t longestName(const std::filesystem::path& folder);

}  // namespace quorvane
