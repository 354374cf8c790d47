#include "batch/Streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "document/AtomicFile.h"
#include "document/DocumentFile.h"
#include "document/Outlet.h"

namespace quorvane {
namespace {

std::string reasonOf(int error) { return std::generic_category().message(error); }

bool isDevice(const std::filesystem::path& target) {
  std::error_code error;
  const auto status = std::filesystem::status(target, error);
  return std::filesystem::exists(status) && std::filesystem::is_other(status);
}

void checkStandardOutput() {
  const int flags = ::fcntl(STDOUT_FILENO, F_GETFL);
  if (flags < 0) throw BatchFailure(kStandardOutput, reasonOf(errno));
  if ((flags & O_ACCMODE) == O_RDONLY) throw BatchFailure(kStandardOutput, reasonOf(EBADF));
}

}  // namespace

void fillStandardDescriptors() {
  for (const int file : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(file, F_GETFD) >= 0) continue;
    // open() returns the lowest free descriptor, which is this one. Opened in the wrong direction, so that
    // its use fails as that of a closed one.
    (void)::open("/dev/null", file == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

bool isStandardStream(const std::filesystem::path& path) { return path == "-"; }

std::string readInput(const std::filesystem::path& document) {
  std::string text;
  const bool fromInput = isStandardStream(document);
  const auto error = fromInput ? readDocumentFrom(STDIN_FILENO, text)
                               : readDocumentFile(document, DocumentSource::kAnything, text);
  if (error) throw BatchFailure(fromInput ? kStandardInput : nameOf(document), error.message());
  return text;
}

void checkOutput(const std::filesystem::path& target) {
  if (isStandardStream(target)) return checkStandardOutput();
  const SignalsHeld held;
  if (const auto error = checkFileCanBeWritten(target)) throw BatchFailure(nameOf(target), error.message());
}

void requireRegular(const std::filesystem::path& target) {
  if (isDevice(target)) throw BatchFailure(nameOf(target), "is no regular file, and --checkpoint needs one");
}

std::optional<SignalsHeld> signalsHeldFor(const std::filesystem::path& target) {
  if (isDevice(target)) return std::nullopt;
  return std::optional<SignalsHeld>(std::in_place);
}

bool mayWaitForReader(std::chrono::milliseconds stalled) {
  constexpr std::chrono::seconds longest{5};
  return stopSignal() == 0 || stalled < longest;
}

void writeStandardOutput(std::string_view content) {
  if (const auto error = writeToOutlet(STDOUT_FILENO, content, mayWaitForReader))
    throw BatchFailure(kStandardOutput, error.message());
}

std::string writeOutput(const std::filesystem::path& target, std::string_view content) {
  if (isStandardStream(target)) return writeStandardOutput(content), "";
  const auto held = signalsHeldFor(target);
  const Written written = writeFileAtomically(target, content, mayWaitForReader);
  if (written.error) throw BatchFailure(nameOf(target), written.error.message() + whereLeft(written));
  return written.inPlace ? nameOf(target) + ": " + kNoteInPlace : "";
}

}  // namespace quorvane
