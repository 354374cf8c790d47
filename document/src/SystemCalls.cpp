#include "SystemCalls.h"

#include <fcntl.h>
#include <unistd.h>

namespace quorvane {

int openFile(const char* path, int flags, mode_t mode) {
  int file = -1;
  do file = ::open(path, flags, mode);
  while (file < 0 && errno == EINTR);
  return file;
}

std::error_code closeFile(int file) {
  return ::close(file) == 0 || errno == EINTR ? std::error_code{} : lastError();
}

namespace {

/// Calls write with the rest of the content until all is written.
template <typename Write>
std::error_code writeRest(std::string_view content, const Write& write) {
  while (!content.empty()) {
    const ssize_t written = write(content);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return lastError();
    // Writing 0 bytes counts as an error, since retrying could loop for ever.
    if (written == 0) return std::make_error_code(std::errc::io_error);
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return {};
}

}  // namespace

std::error_code writeAll(int file, std::string_view content) {
  return writeRest(content, [&](std::string_view rest) { return ::write(file, rest.data(), rest.size()); });
}

std::error_code writeAllAt(int file, std::string_view content, off_t offset) {
  return writeRest(content, [&](std::string_view rest) {
    const auto done = static_cast<off_t>(content.size() - rest.size());
    return ::pwrite(file, rest.data(), rest.size(), offset + done);
  });
}

std::error_code syncFile(int file) {
  while (::fsync(file) != 0) {
    if (errno == EINTR) continue;
    return isNotOffered(errno) ? std::error_code{} : lastError();
  }
  return {};
}

}  // namespace quorvane
