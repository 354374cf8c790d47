#include "document/AtomicFile.h"

#include <unistd.h>

#include <cerrno>

#include "Existing.h"
#include "document/GrowingFile.h"

namespace quorvane {

std::error_code writeFileAtomically(const std::filesystem::path& target, std::string_view content) {
  GrowingFile file;
  if (const auto error = file.open(target)) return error;
  if (const auto error = file.append(content)) return error;
  return file.finish();
}

std::error_code checkFileCanBeWritten(const std::filesystem::path& target) {
  // Opened, a pipe would wait for its reader.
  if (!lookAt(target).isDevice()) return GrowingFile().open(target);
  if (::access(target.c_str(), W_OK) == 0) return {};
  return {errno, std::generic_category()};
}

}  // namespace quorvane
