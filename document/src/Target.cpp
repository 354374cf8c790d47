#include "Target.h"

#include <fcntl.h>
#include <unistd.h>

#include "SystemCalls.h"
#include "document/FileError.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

/// Follows symbolic links; the target of the last one need not exist.
std::error_code follow(Target& target) {
  constexpr int mostLinks = 40;
  for (int links = 0; links <= mostLinks; ++links) {
    // First lets the system resolve the whole chain, which checks that it permits each link.
    if (const auto error = findStatus(target.path, target.existing)) return error;
    struct stat status;
    if (::lstat(target.path.c_str(), &status) != 0) return errno == ENOENT ? std::error_code{} : lastError();
    if (!S_ISLNK(status.st_mode)) return {};
    std::error_code error;
    if (target.existing) {
      const fs::path real = fs::canonical(target.path, error);
      // A link like /dev/fd/N need not lead to a path.
      if (!error) target.path = real;
      return target.isDevice() ? std::error_code{} : error;
    }
    const fs::path next = fs::read_symlink(target.path, error);
    if (error) return error;
    target.path = target.path.parent_path() / next;
  }
  return std::make_error_code(std::errc::too_many_symbolic_link_levels);
}

/// Mount points and append-only files pass every other check, but rename to them fails.
std::error_code checkAttributes(const fs::path& path) {
  struct statx status;
  if (::statx(AT_FDCWD, path.c_str(), 0, STATX_TYPE, &status) != 0) return {};  // not supported by the kernel
  if (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) return FileError::kMountPoint;
  if (status.stx_attributes & (STATX_ATTR_APPEND | STATX_ATTR_IMMUTABLE)) return FileError::kWriteProtected;
  return {};
}

/// The superuser may write any file, but a file without write permission is meant not to be changed.
std::error_code checkExisting(const Target& target) {
  if ((target.existing->st_mode & 0222) == 0) return FileError::kWriteProtected;
  if (::faccessat(AT_FDCWD, target.path.c_str(), W_OK, AT_EACCESS) != 0)
    return errno == EACCES ? make_error_code(FileError::kWriteProtected) : lastError();
  return checkAttributes(target.path);
}

std::error_code checkName(const fs::path& path) {
  const std::string name = path.filename();
  if (name.empty()) return std::make_error_code(std::errc::no_such_file_or_directory);
  if (name.size() > longestName(path.parent_path()))
    return std::make_error_code(std::errc::filename_too_long);
  return {};
}

}  // namespace

std::error_code findTarget(const fs::path& path, Target& target) {
  target = {path, {}};
  if (const auto error = follow(target)) return error;
  if (!target.existing) return checkName(target.path);
  if (S_ISDIR(target.existing->st_mode)) return std::make_error_code(std::errc::is_a_directory);
  return target.isDevice() ? std::error_code{} : checkExisting(target);
}

std::error_code findStatus(const fs::path& path, std::optional<struct stat>& status) {
  status.reset();
  struct stat found;
  if (::stat(path.c_str(), &found) != 0) return errno == ENOENT ? std::error_code{} : lastError();
  status = found;
  return {};
}

std::size_t longestName(const fs::path& folder) {
  constexpr std::size_t usual = 255;
  const long longest = ::pathconf(folder.empty() ? "." : folder.c_str(), _PC_NAME_MAX);
  return longest > 0 ? static_cast<std::size_t>(longest) : usual;
}

}  // namespace quorvane
