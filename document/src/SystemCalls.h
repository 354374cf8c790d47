#pragma once

#include <sys/types.h>

#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>

/// System calls with complete error handling.
namespace quorvane {

inline std::error_code lastError() { return {errno, std::generic_category()}; }

/// True for the errors of operations that a file system does not support.
inline bool isNotOffered(int error) {
  return error == EPERM || error == EINVAL || error == ENOTSUP || error == ENOSYS;
}

/// open, retried after signals.
int openFile(const char* path, int flags, mode_t mode = 0);

/// close. EINTR is not an error: the file is closed.
std::error_code closeFile(int file);

/// Writes all bytes.
std::error_code writeAll(int file, std::string_view content);

/// Writes all bytes from an offset on, without moving the file's position.
std::error_code writeAllAt(int file, std::string_view content, off_t offset);

/// fsync, if the file system supports it.
std::error_code syncFile(int file);

}  // namespace quorvane
