#include "document/Outlet.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <climits>

#include "SystemCalls.h"
#include "document/FileError.h"

namespace quorvane {
namespace {

/// The time for which a reader has not read.
class Stall {
 public:
  std::chrono::milliseconds length() const {
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start_);
  }

 private:
  using Clock = std::chrono::steady_clock;
  Clock::time_point start_ = Clock::now();
};

constexpr int kPollMilliseconds = 50;

std::error_code waitUntilItTakesMore(int file, const MayWait& mayWait) {
  const Stall stall;
  for (;;) {
    pollfd writer = {file, POLLOUT, 0};
    const int ready = ::poll(&writer, 1, kPollMilliseconds);
    if (ready > 0) return {};
    if (ready < 0 && errno != EINTR) return lastError();
    if (!mayWait(stall.length())) return FileError::kNobodyReads;
  }
}

}  // namespace

int openOutlet(const std::filesystem::path& path, const MayWait& mayWait, std::error_code& error) {
  const Stall stall;
  for (;;) {
    // A blocking open of a pipe without a reader could not be given up.
    const int file = ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (file >= 0) return file;
    if (errno != ENXIO && errno != EINTR) {
      error = lastError();
      return -1;
    }
    if (!mayWait(stall.length())) {
      error = FileError::kNobodyReads;
      return -1;
    }
    ::poll(nullptr, 0, kPollMilliseconds);
  }
}

std::error_code writeToOutlet(int file, std::string_view text, const MayWait& mayWait) {
  while (!text.empty()) {
    if (const auto error = waitUntilItTakesMore(file, mayWait)) return error;
    // A pipe that is ready for writing takes PIPE_BUF bytes without blocking.
    const ssize_t written = ::write(file, text.data(), std::min<std::size_t>(text.size(), PIPE_BUF));
    if (written < 0 && (errno == EINTR || errno == EAGAIN)) continue;
    if (written < 0) return lastError();
    if (written == 0) return std::make_error_code(std::errc::io_error);
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return {};
}

}  // namespace quorvane
