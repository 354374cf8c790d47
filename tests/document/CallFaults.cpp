#include "CallFaults.h"

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace quorvane {
namespace {

CallFaults* activeFaults = nullptr;

template <typename Function>
Function* systems(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

/// True if the call is to fail.
bool fails(const std::string& name, int error) {
  activeFaults->calls.push_back(name);
  errno = error;
  return error != 0;
}

bool isFolder(int file) {
  struct stat status;
  return ::fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

CallFaults::CallFaults() { activeFaults = this; }
CallFaults::~CallFaults() { activeFaults = nullptr; }

}  // namespace quorvane

// These take precedence over the C library's.
extern "C" {

using quorvane::activeFaults;

ssize_t write(int file, const void* bytes, size_t size) {
  if (activeFaults && file > STDERR_FILENO) {
    activeFaults->calls.emplace_back("write");
    if (activeFaults->writeGives == 0) return 0;
  }
  return quorvane::systems<ssize_t(int, const void*, size_t)>("write")(file, bytes, size);
}

int fsync(int file) {
  if (activeFaults &&
      quorvane::fails(quorvane::isFolder(file) ? "fsync folder" : "fsync file", activeFaults->fsyncFails))
    return -1;
  return quorvane::systems<int(int)>("fsync")(file);
}

int stat(const char* path, struct stat* status) noexcept {
  if (activeFaults && activeFaults->statFails != 0) {
    errno = activeFaults->statFails;
    return -1;
  }
  return quorvane::systems<int(const char*, struct stat*)>("stat")(path, status);
}

int fchmod(int file, mode_t mode) noexcept {
  if (activeFaults && quorvane::fails("fchmod", activeFaults->fchmodFails)) return -1;
  return quorvane::systems<int(int, mode_t)>("fchmod")(file, mode);
}

int fchown(int file, uid_t owner, gid_t group) noexcept {
  if (activeFaults && quorvane::fails("fchown", activeFaults->fchownFails)) return -1;
  return quorvane::systems<int(int, uid_t, gid_t)>("fchown")(file, owner, group);
}

int rename(const char* from, const char* to) noexcept {
  if (activeFaults && quorvane::fails("rename", activeFaults->renameFails)) return -1;
  return quorvane::systems<int(const char*, const char*)>("rename")(from, to);
}
}
