#pragma once

#include <system_error>

namespace quorvane {

/// Errors of files that the system's own messages do not explain well.
enum class FileError {
  kWriteProtected = 1,  ///< an existing file without write permission; is errc::permission_denied
  kMountPoint,          ///< cannot be replaced; is errc::device_or_resource_busy
  kNobodyReads,         ///< a pipe without a reader, or whose reader does not read; is errc::timed_out
  kNotRegular,          ///< a pipe or a device instead of a regular file; is errc::invalid_argument
  kTooLarge,            ///< larger than kMaxDocumentBytes; is errc::file_too_large
};

/// The error as a code whose message is one line without a path.
std::error_code make_error_code(FileError error);

}  // namespace quorvane

template <>
struct std::is_error_code_enum<quorvane::FileError> : std::true_type {};
