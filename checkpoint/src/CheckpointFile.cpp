#include "checkpoint/CheckpointFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "checkpoint/SealedBytes.h"
#include "document/AtomicFile.h"
#include "document/FileError.h"
#include "document/GrowingFile.h"
#include "document/PartialFiles.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void failWith(const std::error_code& error) { throw CheckpointError(error.message()); }

void require(const std::error_code& error) {
  if (error) failWith(error);
}

std::error_code systemError() { return {errno, std::generic_category()}; }

/// True while a path, followed if it is a link, leads to an open file.
bool leadsTo(const fs::path& path, int file) {
  struct stat opened, there;
  return file >= 0 && ::fstat(file, &opened) == 0 && ::stat(path.c_str(), &there) == 0 &&
         opened.st_dev == there.st_dev && opened.st_ino == there.st_ino;
}

std::string wholeContent(int file) {
  struct stat status;
  if (::fstat(file, &status) != 0) failWith(systemError());
  if (S_ISDIR(status.st_mode)) failWith(std::make_error_code(std::errc::is_a_directory));
  if (!S_ISREG(status.st_mode)) failWith(FileError::kNotRegular);
  std::string content;
  char block[1 << 16];
  for (;;) {
    const ssize_t size = ::read(file, block, sizeof block);
    if (size < 0 && errno == EINTR) continue;
    if (size < 0) failWith(systemError());
    if (size == 0) return content;
    content.append(block, static_cast<std::size_t>(size));
    if (content.size() > kMaxCheckpointBytes) throw CheckpointError("is no checkpoint (it is too large)");
  }
}

}  // namespace

CheckpointFile::~CheckpointFile() { hold(-1); }

void CheckpointFile::hold(int file) {
  if (lock_ >= 0) ::close(lock_);
  lock_ = file;
}

int CheckpointFile::openLocked() const {
  constexpr int attempts = 100;
  for (int attempt = 0; attempt < attempts; ++attempt) {
    int file = -1;
    // A blocking open of a pipe would wait for its writer.
    do file = ::open(path_.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    while (file < 0 && errno == EINTR);
    if (file < 0) return -1;
    // Without support for locks nothing tells whether another process uses the file.
    const bool taken = ::flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (!taken && leadsTo(path_, file)) return file;
    ::close(file);
    if (taken) break;
    // It was replaced between its opening and its locking.
  }
  throw CheckpointError("is in use by another run at this moment");
}

std::string CheckpointFile::read() {
  hold(openLocked());
  if (lock_ < 0) failWith(systemError());
  const std::string file = wholeContent(lock_);
  return std::string(contentOfSealed(file));
}

void CheckpointFile::claim() {
  if (leadsTo(path_, lock_)) return;
  // A file that cannot be read may still be replaced, and writing tells if not.
  hold(openLocked());
}

std::string CheckpointFile::write(std::string_view content) {
  claim();
  GrowingFile file;
  require(file.open(path_));
  require(file.append(seal(content)));
  // The new file stays locked when it has replaced the old one.
  const int lock = file.duplicate();
  const auto error = file.finish();
  if (error || file.wroteInPlace()) {
    if (lock >= 0) ::close(lock);
    require(error);
  } else {
    hold(lock);
  }
  sweepPartialFiles(path_);
  return file.wroteInPlace() ? kNoteInPlace : "";
}

}  // namespace quorvane
