#include "batch/Streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "document/AtomicFile.h"

namespace quorvane {
namespace {

constexpr const char* kStandardInput = "standard input";
constexpr const char* kStandardOutput = "standard output";

std::string lastError() { return std::generic_category().message(errno); }

void writeStandardOutput(std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(STDOUT_FILENO, content.data(), content.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) throw BatchFailure(kStandardOutput, lastError());
    content.remove_prefix(static_cast<std::size_t>(written));
  }
}

bool isDevice(const std::filesystem::path& target) {
  std::error_code error;
  const auto status = std::filesystem::status(target, error);
  return std::filesystem::exists(status) && std::filesystem::is_other(status);
}

}  // namespace

bool isStandardStream(const std::filesystem::path& path) { return path == "-"; }

std::string readStandardInput() {
  std::string text;
  char block[1 << 16];
  for (;;) {
    const ssize_t size = ::read(STDIN_FILENO, block, sizeof block);
    if (size < 0) throw BatchFailure(kStandardInput, lastError());
    if (size == 0) return text;
    text.append(block, static_cast<std::size_t>(size));
  }
}

void checkOutput(const std::filesystem::path& target) {
  if (isStandardStream(target)) {
    if (::fcntl(STDOUT_FILENO, F_GETFD) < 0) throw BatchFailure(kStandardOutput, lastError());
    return;
  }
  const SignalsHeld held;
  if (const auto error = checkFileCanBeWritten(target)) throw BatchFailure(target.string(), error.message());
}

std::optional<SignalsHeld> signalsHeldFor(const std::filesystem::path& target) {
  if (isDevice(target)) return std::nullopt;
  return std::optional<SignalsHeld>(std::in_place);
}

void writeOutput(const std::filesystem::path& target, std::string_view content) {
  if (isStandardStream(target)) return writeStandardOutput(content);
  const auto held = signalsHeldFor(target);
  if (const auto error = writeFileAtomically(target, content))
    throw BatchFailure(target.string(), error.message());
}

}  // namespace quorvane
