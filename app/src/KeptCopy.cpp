#include "app/KeptCopy.h"

#include <fcntl.h>
#include <unistd.h>

#include <utility>

#include "app/KeptFolder.h"
#include "document/Folder.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;

SaveResult writeNext(const fs::path& folder, std::string_view document, fs::path& path) {
  if (const auto error = claimCopy(folder, path)) return {false, error.message()};
  SaveResult result = saveDocument(document, path);
  if (!result.saved) ::unlink(path.c_str());
  return result;
}

}  // namespace

KeptCopy::~KeptCopy() { leave(); }

SaveResult KeptCopy::write(std::string_view document) {
  if (folder_.empty()) return {false, "neither XDG_STATE_HOME nor HOME names a folder"};
  // Until it is marked, another window may take it for an old copy and remove it.
  constexpr int attempts = 3;
  fs::path path;
  int file = -1;
  for (int attempt = 0; attempt < attempts && !isAt(path, file); ++attempt) {
    if (file >= 0) ::close(file);
    SaveResult result = writeNext(folder_, document, path);
    if (!result.saved) return result;
    file = ::open(path.c_str(), O_RDWR | O_NOFOLLOW | O_CLOEXEC);
    if (file >= 0) markInUse(file);
  }
  discard();
  path_ = path;
  file_ = file;
  tidyKeptFolder(folder_);
  return {true};
}

void KeptCopy::discard() {
  // The user may have saved another document over it.
  if (isThere()) ::unlink(path_.c_str());
  leave();
}

bool KeptCopy::isThere() const { return isAt(path_, file_); }

void KeptCopy::leave() {
  if (file_ >= 0) ::close(std::exchange(file_, -1));
  path_.clear();
}

}  // namespace quorvane
