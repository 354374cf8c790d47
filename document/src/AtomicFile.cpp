#include "document/AtomicFile.h"

#include <fcntl.h>
#include <unistd.h>

#include "SystemCalls.h"
#include "Target.h"
#include "document/GrowingFile.h"

namespace quorvane {

std::string whereLeft(const Written& written) {
  return written.left.empty() ? "" : " (the new content is in " + written.left.filename().string() + ")";
}

Written writeFileAtomically(const std::filesystem::path& target, std::string_view content,
                            const MayWait& mayWait) {
  GrowingFile file(mayWait);
  if (const auto error = file.open(target)) return {error};
  if (const auto error = file.append(content)) return {error};
  const auto error = file.finish();
  return {error, file.wroteInPlace(), file.isKept() ? file.partial() : std::filesystem::path()};
}

std::error_code checkFileCanBeWritten(const std::filesystem::path& path) {
  Target target;
  if (const auto error = findTarget(path, target)) return error;
  // Opening a pipe would wait for its reader.
  if (!target.isDevice()) return GrowingFile().open(path);
  return ::faccessat(AT_FDCWD, target.path.c_str(), W_OK, AT_EACCESS) == 0 ? std::error_code{} : lastError();
}

}  // namespace quorvane
