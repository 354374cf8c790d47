#include "document/GrowingFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <utility>

#include "Existing.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

std::error_code lastError() { return {errno, std::generic_category()}; }

std::error_code writeAll(int file, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(file, content.data(), content.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return lastError();
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return {};
}

/// Follows symbolic links by hand, because the last one may point to a file that does not exist yet.
std::error_code followLinks(fs::path& target) {
  constexpr int mostLinks = 40;
  for (int links = 0; links < mostLinks; ++links) {
    std::error_code error;
    if (!fs::is_symlink(fs::symlink_status(target, error))) return {};
    const fs::path next = fs::read_symlink(target, error);
    if (error) return error;
    target = target.parent_path() / next;
  }
  return std::make_error_code(std::errc::too_many_symbolic_link_levels);
}

/// Bytes of the longest name that a file in the folder can have.
std::size_t longestName(const fs::path& folder) {
  constexpr std::size_t usual = 255;
  const long longest = ::pathconf(folder.empty() ? "." : folder.c_str(), _PC_NAME_MAX);
  return longest > 0 ? static_cast<std::size_t>(longest) : usual;
}

/// The beginning of a name, without a piece of a character of UTF-8 at its end.
std::string cut(std::string name, std::size_t bytes) {
  const auto isContinued = [&] { return (static_cast<unsigned char>(name[bytes]) & 0xC0) == 0x80; };
  if (name.size() <= bytes) return name;
  while (bytes > 0 && isContinued()) --bytes;
  name.resize(bytes);
  return name;
}

std::string partialName(const std::string& name, int attempt, std::size_t longest) {
  std::string end = ".quorvane-" + std::to_string(::getpid());
  if (attempt > 0) end += '-' + std::to_string(attempt);
  end += ".partial";
  if (name.empty()) return end;
  return '.' + cut(name, longest - std::min(longest, 1 + end.size())) + end;
}

}  // namespace

GrowingFile::~GrowingFile() {
  close();
  if (!partial_.empty() && !kept_) ::unlink(partial_.c_str());
}

std::error_code GrowingFile::open(const fs::path& target) {
  const Existing existing = lookAt(target);
  if (existing.isFolder()) return std::make_error_code(std::errc::is_a_directory);
  if (existing.isDevice()) return openDevice(target);

  target_ = target;
  if (const auto error = followLinks(target_)) return error;
  if (const auto error = create()) return error;
  return adoptPermissions();
}

std::error_code GrowingFile::openDevice(const fs::path& device) {
  file_ = ::open(device.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
  return file_ >= 0 ? std::error_code{} : lastError();
}

std::error_code GrowingFile::create() {
  const fs::path folder = target_.parent_path();
  const std::size_t longest = longestName(folder);
  std::string name = target_.filename();
  if (name.empty()) return std::make_error_code(std::errc::no_such_file_or_directory);
  if (name.size() > longest) return std::make_error_code(std::errc::filename_too_long);

  // A file of this name was left by a former process with the same number.
  constexpr int attempts = 1000;
  for (int attempt = 0; attempt < attempts;) {
    const fs::path path = folder / partialName(name, attempt, longest);
    file_ = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file_ >= 0) {
      partial_ = path;
      return {};
    }
    if (errno == EEXIST)
      ++attempt;
    else if (errno == ENAMETOOLONG && !name.empty())
      name.clear();  // The whole path is too long.
    else
      return lastError();
  }
  return std::make_error_code(std::errc::file_exists);
}

std::error_code GrowingFile::adoptPermissions() const {
  const auto permissions = lookAt(target_).permissions();
  if (!permissions || ::fchmod(file_, *permissions) == 0) return {};
  return lastError();
}

std::error_code GrowingFile::append(std::string_view text) {
  if (const auto error = writeAll(file_, text)) {
    // A part of the text may be there. Making a file shorter needs no space.
    if (!partial_.empty() && ::ftruncate(file_, size_) == 0) ::lseek(file_, size_, SEEK_SET);
    return error;
  }
  size_ += static_cast<std::int64_t>(text.size());
  return {};
}

std::error_code GrowingFile::finish() {
  if (partial_.empty()) return close();
  if (const auto error = adoptPermissions()) return error;
  if (::fsync(file_) != 0) return lastError();
  if (const auto error = close()) return error;
  if (::rename(partial_.c_str(), target_.c_str()) != 0) return lastError();
  partial_.clear();
  return {};
}

/// Some file systems report a failed write only here.
std::error_code GrowingFile::close() {
  const int file = std::exchange(file_, -1);
  return file < 0 || ::close(file) == 0 ? std::error_code{} : lastError();
}

}  // namespace quorvane
