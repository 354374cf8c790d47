#include "document/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <optional>
#include <string>
#include <utility>

namespace quorvane {
namespace {

namespace fs = std::filesystem;

std::error_code lastError() { return {errno, std::generic_category()}; }

/// An open file descriptor.
class Descriptor {
 public:
  explicit Descriptor(int fd = -1) : fd_(fd) {}
  Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  ~Descriptor() {
    if (fd_ >= 0) ::close(fd_);
  }

  int get() const { return fd_; }
  bool isOpen() const { return fd_ >= 0; }
  /// Some file systems report a failed write only here.
  std::error_code close() { return ::close(std::exchange(fd_, -1)) == 0 ? std::error_code{} : lastError(); }

 private:
  int fd_;
};

std::error_code writeAll(const Descriptor& file, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(file.get(), content.data(), content.size());
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

/// A file of its own beside a target, removed again unless it took the target's place.
class Temporary {
 public:
  Temporary() = default;
  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;
  ~Temporary() {
    if (!path_.empty()) ::unlink(path_.c_str());
  }

  std::error_code create(const fs::path& folder) {
    constexpr int attempts = 100;
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    for (int attempt = 0; attempt < attempts; ++attempt) {
      // Short, so that it fits wherever the target's own name does.
      const fs::path path =
          folder / (".quorvane-" + std::to_string(::getpid()) + "-" + std::to_string(now + attempt));
      file_ = Descriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
      if (file_.isOpen()) {
        path_ = path;
        return {};
      }
      if (errno != EEXIST) return lastError();
    }
    return std::make_error_code(std::errc::file_exists);
  }

  std::error_code fill(std::string_view content, std::optional<mode_t> permissions) {
    if (const auto error = writeAll(file_, content)) return error;
    if (permissions && ::fchmod(file_.get(), *permissions) != 0) return lastError();
    if (::fsync(file_.get()) != 0) return lastError();
    return file_.close();
  }

  std::error_code takePlaceOf(const fs::path& target) {
    if (::rename(path_.c_str(), target.c_str()) != 0) return lastError();
    path_.clear();
    return {};
  }

 private:
  fs::path path_;
  Descriptor file_;
};

/// What stands at a path, links followed.
struct Existing {
  std::optional<mode_t> mode;
  bool isFolder() const { return mode && S_ISDIR(*mode); }
  bool isDevice() const { return mode && !S_ISREG(*mode) && !S_ISDIR(*mode); }
  std::optional<mode_t> permissions() const { return mode ? std::optional(*mode & 07777) : std::nullopt; }
};

Existing lookAt(const fs::path& target) {
  struct stat status;
  if (::stat(target.c_str(), &status) != 0) return {};
  return {status.st_mode};
}

std::error_code writeToDevice(const fs::path& device, std::string_view content) {
  Descriptor file(::open(device.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC));
  if (!file.isOpen()) return lastError();
  if (const auto error = writeAll(file, content)) return error;
  return file.close();
}

}  // namespace

std::error_code writeFileAtomically(const fs::path& target, std::string_view content) {
  const Existing existing = lookAt(target);
  if (existing.isFolder()) return std::make_error_code(std::errc::is_a_directory);
  if (existing.isDevice()) return writeToDevice(target, content);

  fs::path file = target;
  if (const auto error = followLinks(file)) return error;
  Temporary temporary;
  if (const auto error = temporary.create(file.parent_path())) return error;
  if (const auto error = temporary.fill(content, existing.permissions())) return error;
  return temporary.takePlaceOf(file);
}

std::error_code checkFileCanBeWritten(const fs::path& target) {
  const Existing existing = lookAt(target);
  if (existing.isFolder()) return std::make_error_code(std::errc::is_a_directory);
  if (existing.isDevice()) return ::access(target.c_str(), W_OK) == 0 ? std::error_code{} : lastError();

  fs::path file = target;
  if (file.filename().empty()) return std::make_error_code(std::errc::no_such_file_or_directory);
  if (const auto error = followLinks(file)) return error;
  return Temporary().create(file.parent_path());
}

}  // namespace quorvane
