#include "document/GrowingFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string>
#include <utility>

#include "Ownership.h"
#include "SystemCalls.h"
#include "Target.h"
#include "document/FileError.h"
#include "document/Folder.h"
#include "document/PartialFiles.h"

namespace quorvane {

namespace fs = std::filesystem;

GrowingFile::~GrowingFile() {
  close();
  if (!partial_.empty() && !kept_) ::unlink(partial_.c_str());
}

std::error_code GrowingFile::open(const fs::path& path) {
  Target target;
  if (const auto error = findTarget(path, target)) return error;
  target_ = target.path;
  if (!target.isDevice()) return create();
  std::error_code error;
  file_ = openOutlet(target_, mayWait_, error);
  return error;
}

std::error_code GrowingFile::create() {
  const fs::path folder = target_.parent_path();
  const std::size_t longest = longestName(folder);
  std::string name = target_.filename();

  // A name may be that of a file that an earlier process with the same id left.
  constexpr int attempts = 1000;
  for (int attempt = 0; attempt < attempts;) {
    fs::path path = folder / partialName(name, attempt, longest);
    file_ = openFile(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file_ >= 0 && !holdPartialFile(file_)) {
      close();
      ++attempt;
    } else if (file_ >= 0) {
      partial_ =
          std::move(path);  // Moved, since a copy may fail for lack of memory and leave the file behind.
      return {};
    } else if (errno == EEXIST) {
      ++attempt;
    } else if (errno == ENAMETOOLONG && !name.empty()) {
      name.clear();  // The whole path is too long.
    } else {
      return lastError();
    }
  }
  return std::make_error_code(std::errc::file_exists);
}

std::error_code GrowingFile::openAgain(const fs::path& path, const std::string& name, std::int64_t size) {
  Target target;
  if (const auto error = findTarget(path, target)) return error;
  const fs::path partial = partialBeside(path, name);
  if (partial.empty()) return std::make_error_code(std::errc::invalid_argument);
  file_ = openFile(partial.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (file_ < 0) return lastError();
  if (!holdPartialFile(file_)) return std::make_error_code(std::errc::device_or_resource_busy);
  struct stat status;
  if (::fstat(file_, &status) != 0) return lastError();
  if (!S_ISREG(status.st_mode) || status.st_size < size) return FileError::kNotRegular;
  if (status.st_size > size && ::ftruncate(file_, size) != 0) return lastError();
  if (::lseek(file_, size, SEEK_SET) < 0) return lastError();
  target_ = target.path;
  partial_ = partial;
  size_ = size;
  // What another process left is not removed if this one fails.
  keep();
  return {};
}

std::error_code GrowingFile::append(std::string_view text) {
  if (partial_.empty()) return writeToOutlet(file_, text, mayWait_);
  if (const auto error = writeAll(file_, text)) {
    // Removes a partly written text; truncating needs no space.
    if (::ftruncate(file_, size_) == 0) ::lseek(file_, size_, SEEK_SET);
    return error;
  }
  size_ += static_cast<std::int64_t>(text.size());
  return {};
}

// What the file holds is part of the object.
// NOLINTNEXTLINE(readability-make-member-function-const)
std::error_code GrowingFile::overwriteBeginning(std::string_view text) { return writeAllAt(file_, text, 0); }

std::error_code GrowingFile::sync() {
  if (partial_.empty()) return {};
  if (const auto error = syncFile(file_)) return error;
  syncFolder(partial_.parent_path());
  return {};
}

int GrowingFile::duplicate() const { return file_ < 0 ? -1 : ::fcntl(file_, F_DUPFD_CLOEXEC, 0); }

std::error_code GrowingFile::finish() {
  if (partial_.empty()) return close();
  std::optional<struct stat> existing;
  if (const auto error = findStatus(target_, existing)) return error;
  mode_t permissions = 0;
  if (existing && S_ISREG(existing->st_mode)) {
    bool adopted = false;
    if (const auto error = adoptOwner(file_, *existing, adopted)) return error;
    if (!adopted) return copyIntoTarget();
    permissions = existing->st_mode & 07777;
  } else {
    permissions = usualPermissions();
  }
  if (const auto error = adoptPermissions(file_, permissions)) return error;
  return replaceTarget();
}

std::error_code GrowingFile::replaceTarget() {
  // After the rename nothing may fail.
  const fs::path folder = target_.parent_path();
  if (const auto error = syncFile(file_)) return error;
  // The second descriptor keeps the lock until the file has its name: without it a sweep could remove the
  // file.
  const int lock = ::fcntl(file_, F_DUPFD_CLOEXEC, 0);
  std::error_code error = close();
  if (!error && ::rename(partial_.c_str(), target_.c_str()) != 0) error = lastError();
  if (lock >= 0) ::close(lock);
  if (error) return error;
  partial_.clear();
  syncFolder(folder);
  return {};
}

std::error_code GrowingFile::copyIntoTarget() {
  if (const auto error = syncFile(file_)) return error;
  const int target = openFile(target_.c_str(), O_WRONLY | O_NOFOLLOW | O_CLOEXEC);
  if (target < 0) return lastError();
  // From here on the target may be half written and this file is the only complete one, so it must keep its
  // name.
  syncFolder(partial_.parent_path());
  keep();
  std::error_code error = copyContent(file_, target, size_);
  if (!error) error = syncFile(target);
  const auto closed = closeFile(target);
  if (error || closed) return error ? error : closed;
  wroteInPlace_ = true;
  if (const auto closedThis = close()) return closedThis;
  ::unlink(partial_.c_str());
  partial_.clear();
  return {};
}

/// Some file systems report failed writes only at fsync or close.
std::error_code GrowingFile::close() {
  const int file = std::exchange(file_, -1);
  return file < 0 ? std::error_code{} : closeFile(file);
}

}  // namespace quorvane
