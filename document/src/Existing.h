#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <optional>

namespace quorvane {

/// What stands at a path, links followed.
struct Existing {
  std::optional<mode_t> mode;
  bool isFolder() const { return mode && S_ISDIR(*mode); }
  bool isDevice() const { return mode && !S_ISREG(*mode) && !S_ISDIR(*mode); }
  std::optional<mode_t> permissions() const { return mode ? std::optional(*mode & 07777) : std::nullopt; }
};

inline Existing lookAt(const std::filesystem::path& path) {
  struct stat status;
  if (::stat(path.c_str(), &status) != 0) return {};
  return {status.st_mode};
}

}  // namespace quorvane
