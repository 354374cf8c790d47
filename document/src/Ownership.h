#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <system_error>

/// How a new file becomes what the old one was to others.
namespace quorvane {

/// Gives a file the owner and group of another. adopted: false where this process may not, which is no error.
std::error_code adoptOwner(int file, const struct stat& existing, bool& adopted);

/// Gives a file permissions, where the file system has any.
std::error_code adoptPermissions(int file, mode_t permissions);

/// Those of a file that is made without a wish for others.
mode_t usualPermissions();

/// Makes the content of one file, which has so many bytes, that of another.
std::error_code copyContent(int from, int to, std::int64_t size);

}  // namespace quorvane
