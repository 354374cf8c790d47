#include "document/Folder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>

#include "SystemCalls.h"

namespace quorvane {
namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

int openFolder(const std::filesystem::path& path) {
  return openFile(path.empty() ? "." : path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

std::unique_ptr<DIR, CloseFolder> open(const std::filesystem::path& path) {
  const int file = openFolder(path);
  DIR* folder = file < 0 ? nullptr : ::fdopendir(file);
  if (folder || file < 0) return std::unique_ptr<DIR, CloseFolder>(folder);
  const int error = errno;
  ::close(file);
  errno = error;
  return nullptr;
}

}  // namespace

std::error_code readFolder(const std::filesystem::path& path, std::vector<std::string>& names) {
  names.clear();
  const auto folder = open(path);
  if (!folder) return lastError();
  for (;;) {
    errno = 0;
    const dirent* entry = ::readdir(folder.get());
    if (!entry) return errno == 0 ? std::error_code{} : lastError();
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
}

bool isAt(const std::filesystem::path& path, int file) {
  struct stat opened, there;
  return file >= 0 && ::fstat(file, &opened) == 0 && ::lstat(path.c_str(), &there) == 0 &&
         opened.st_dev == there.st_dev && opened.st_ino == there.st_ino;
}

void syncFolder(const std::filesystem::path& folder) {
  const int file = openFolder(folder);
  if (file < 0) return;
  while (::fsync(file) != 0 && errno == EINTR) continue;
  ::close(file);
}

}  // namespace quorvane
