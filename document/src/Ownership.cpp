#include "Ownership.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string_view>

#include "SystemCalls.h"

namespace quorvane {

std::error_code adoptOwner(int file, const struct stat& existing, bool& adopted) {
  struct stat own;
  adopted = false;
  if (::fstat(file, &own) != 0) return lastError();
  const bool alike = own.st_uid == existing.st_uid && own.st_gid == existing.st_gid;
  adopted = alike || ::fchown(file, existing.st_uid, existing.st_gid) == 0;
  // If this disk fails or is full, the old file must not be changed.
  return adopted || isNotOffered(errno) || errno == EACCES ? std::error_code{} : lastError();
}

std::error_code adoptPermissions(int file, mode_t permissions) {
  struct stat own;
  if (::fstat(file, &own) == 0 && (own.st_mode & 07777) == permissions) return {};
  return ::fchmod(file, permissions) == 0 || isNotOffered(errno) ? std::error_code{} : lastError();
}

mode_t usualPermissions() {
  // umask can only be read by setting it. Files that other threads create meanwhile are more private.
  const mode_t mask = ::umask(S_IRWXG | S_IRWXO);
  ::umask(mask);
  return (S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH) & ~mask;
}

std::error_code copyContent(int from, int to, std::int64_t size) {
  char block[1 << 16];
  for (std::int64_t done = 0; done < size;) {
    const auto most = static_cast<std::size_t>(std::min<std::int64_t>(sizeof block, size - done));
    const ssize_t read = ::pread(from, block, most, done);
    if (read < 0 && errno == EINTR) continue;
    if (read < 0) return lastError();
    if (read == 0) return std::make_error_code(std::errc::io_error);
    if (const auto error = writeAll(to, std::string_view(block, static_cast<std::size_t>(read))))
      return error;
    done += read;
  }
  return ::ftruncate(to, size) == 0 ? std::error_code{} : lastError();
}

}  // namespace quorvane
