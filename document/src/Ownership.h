#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <system_error>

/// Gives a new file the owner, group and permissions of the old one.
namespace quorvane {

/// Copies owner and group of a file. adopted: false if this process may not, which is not an error.
std::error_code adoptOwner(int file, const struct stat& existing, bool& adopted);

/// Sets permissions; ignored by file systems without them.
std::error_code adoptPermissions(int file, mode_t permissions);

/// The permissions of an ordinary new file.
mode_t usualPermissions();

/// Copies the given number of bytes, the whole content, from one file to another.
std::error_code copyContent(int from, int to, std::int64_t size);

}  // namespace quorvane
