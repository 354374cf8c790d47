#include "record/Fingerprint.h"

#include <fcntl.h>
#include <sha256.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace quorvane {
namespace {

/// A file that is open for reading.
class OpenFile {
 public:
  explicit OpenFile(const std::filesystem::path& file) {
    // A blocking open of a pipe would wait for its writer.
    do file_ = ::open(file.c_str(), O_RDONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    while (file_ < 0 && errno == EINTR);
    if (file_ < 0) fail(errno);
    struct stat status;
    if (::fstat(file_, &status) == 0 && S_ISREG(status.st_mode)) return;
    ::close(file_);
    fail(EINVAL);
  }
  ~OpenFile() { ::close(file_); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  /// The next bytes; none at the end.
  std::string_view next() {
    for (;;) {
      const ssize_t size = ::read(file_, block_, sizeof block_);
      if (size >= 0) return {block_, static_cast<std::size_t>(size)};
      if (errno != EINTR) fail(errno);
    }
  }

 private:
  [[noreturn]] static void fail(int error) { throw std::system_error(error, std::generic_category()); }

  int file_ = -1;
  char block_[1 << 16];
};

}  // namespace

struct Fingerprinting::State {
  SHA2_CTX context;
  std::int64_t bytes = 0;
};

Fingerprinting::Fingerprinting() : state_(std::make_unique<State>()) { ::SHA256Init(&state_->context); }
Fingerprinting::Fingerprinting(Fingerprinting&&) noexcept = default;
Fingerprinting& Fingerprinting::operator=(Fingerprinting&&) noexcept = default;
Fingerprinting::~Fingerprinting() = default;

void Fingerprinting::add(std::string_view piece) {
  ::SHA256Update(&state_->context, reinterpret_cast<const std::uint8_t*>(piece.data()), piece.size());
  state_->bytes += static_cast<std::int64_t>(piece.size());
}

Fingerprint Fingerprinting::soFar() const {
  SHA2_CTX context = state_->context;
  char digits[SHA256_DIGEST_STRING_LENGTH];
  ::SHA256End(&context, digits);
  return {digits, state_->bytes};
}

Fingerprint fingerprintOf(std::string_view content) {
  Fingerprinting fingerprinting;
  fingerprinting.add(content);
  return fingerprinting.soFar();
}

Fingerprint fingerprintOfFile(const std::filesystem::path& file) {
  OpenFile open(file);
  Fingerprinting fingerprinting;
  for (std::string_view piece = open.next(); !piece.empty(); piece = open.next()) fingerprinting.add(piece);
  return fingerprinting.soFar();
}

}  // namespace quorvane
