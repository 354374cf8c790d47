#include "document/DocumentFile.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include "SystemCalls.h"
#include "document/FileError.h"

namespace quorvane {
namespace {

std::error_code checkKind(int file, DocumentSource source, std::size_t most) {
  struct stat status;
  if (::fstat(file, &status) != 0) return lastError();
  if (S_ISDIR(status.st_mode)) return std::make_error_code(std::errc::is_a_directory);
  if (!S_ISREG(status.st_mode) && source == DocumentSource::kFile) return FileError::kNotRegular;
  if (S_ISREG(status.st_mode) && static_cast<std::size_t>(status.st_size) > most) return FileError::kTooLarge;
  return {};
}

/// Waits for a non-blocking descriptor to become readable.
void waitForMore(int file) {
  pollfd reader = {file, POLLIN, 0};
  ::poll(&reader, 1, -1);
}

}  // namespace

std::error_code readDocumentFrom(int file, std::string& text, std::size_t most) {
  text.clear();
  char block[1 << 16];
  for (;;) {
    const ssize_t size = ::read(file, block, sizeof block);
    if (size < 0) {
      if (errno != EAGAIN && errno != EINTR) return lastError();
      if (errno == EAGAIN) waitForMore(file);
      continue;
    }
    if (size == 0) return {};
    text.append(block, static_cast<std::size_t>(size));
    if (text.size() > most) return FileError::kTooLarge;
  }
}

std::error_code readDocumentFile(const std::filesystem::path& path, DocumentSource source, std::string& text,
                                 std::size_t most) {
  // A blocking open of a pipe would wait for its writer.
  const int flags = source == DocumentSource::kFile ? O_NONBLOCK : 0;
  const int file = openFile(path.c_str(), O_RDONLY | O_NOCTTY | O_CLOEXEC | flags);
  if (file < 0) return lastError();
  std::error_code error = checkKind(file, source, most);
  if (!error) error = readDocumentFrom(file, text, most);
  ::close(file);
  return error;
}

}  // namespace quorvane
