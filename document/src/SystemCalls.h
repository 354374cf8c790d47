#pragma once

#include <sys/types.h>

#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>

/// Calls of the system as this folder needs them: each return value is looked at.
namespace quorvane {

inline std::error_code lastError() { return {errno, std::generic_category()}; }

/// True of the errors by which a file system says that it does not have such a thing.
inline bool isNotOffered(int error) {
  return error == EPERM || error == EINVAL || error == ENOTSUP || error == ENOSYS;
}

/// Opens a file as open does, also where a signal interrupts that.
int openFile(const char* path, int flags, mode_t mode = 0);

/// Closes a file. A signal that interrupts that is no failure: the file is closed all the same.
std::error_code closeFile(int file);

/// Hands everything to the system.
std::error_code writeAll(int file, std::string_view content);

/// Waits until the content is on the disk, where the file system offers that.
std::error_code syncFile(int file);

}  // namespace quorvane
