#include "document/FileError.h"

#include <string>

#include "document/DocumentFile.h"

namespace quorvane {
namespace {

class Category : public std::error_category {
 public:
  const char* name() const noexcept override { return "file"; }

  std::string message(int value) const override {
    switch (static_cast<FileError>(value)) {
      case FileError::kWriteProtected:
        return "is write-protected";
      case FileError::kMountPoint:
        return "is a mount point, so it cannot be replaced";
      case FileError::kNobodyReads:
        return "nobody reads from it";
      case FileError::kNotRegular:
        return "is not a regular file";
      case FileError::kTooLarge:
        return "is larger than a document can be (" + std::to_string(kMaxDocumentBytes) + " bytes)";
    }
    return "failed";
  }

  std::error_condition default_error_condition(int value) const noexcept override {
    switch (static_cast<FileError>(value)) {
      case FileError::kWriteProtected:
        return std::errc::permission_denied;
      case FileError::kMountPoint:
        return std::errc::device_or_resource_busy;
      case FileError::kNobodyReads:
        return std::errc::timed_out;
      case FileError::kNotRegular:
        return std::errc::invalid_argument;
      case FileError::kTooLarge:
        return std::errc::file_too_large;
    }
    return std::errc::io_error;
  }
};

}  // namespace

std::error_code make_error_code(FileError error) {
  static const Category category;
  return {static_cast<int>(error), category};
}

}  // namespace quorvane
