#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <optional>
#include <system_error>

namespace quorvane {

/// The place that a file is to be written to.
struct Target {
  std::filesystem::path path;  ///< symbolic links followed
  std::optional<struct stat> existing;

  bool isDevice() const { return existing && !S_ISREG(existing->st_mode); }
  mode_t permissions() const { return existing->st_mode & 07777; }
};

/// Finds where a path leads, by the system's own rules for links: one that it does not follow, in a folder
/// that is shared with others, is not followed here either. Gives the reason why nothing can be written
/// there, as far as that shows: a folder, a mount point, a file that is write-protected, a name that is too
/// long.
std::error_code findTarget(const std::filesystem::path& path, Target& target);

/// Finds the status of what stands at a path now; none if nothing does.
std::error_code findStatus(const std::filesystem::path& path, std::optional<struct stat>& status);

/// Bytes of the longest name that a file in the folder can have.
std::size_t longestName(const std::filesystem::path& folder);

}  // namespace quorvane
