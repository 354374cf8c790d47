#pragma once

#include <system_error>

namespace quorvane {

/// What the system's own errors do not say plainly enough about a file.
enum class FileError {
  kWriteProtected = 1,  ///< an existing file that its permissions protect; is errc::permission_denied
  kMountPoint,          ///< nothing can take its place; is errc::device_or_resource_busy
  kNobodyReads,         ///< a pipe without a reader, or whose reader takes nothing; is errc::timed_out
  kNotRegular,          ///< a pipe or a device where only a file will do; is errc::invalid_argument
  kTooLarge,            ///< more than a document holds; is errc::file_too_large
};

/// The error as a code whose message is one line without a path.
std::error_code make_error_code(FileError error);

}  // namespace quorvane

template <>
struct std::is_error_code_enum<quorvane::FileError> : std::true_type {};
