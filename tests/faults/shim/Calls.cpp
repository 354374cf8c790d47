// Interposed system calls. They take precedence over the C library's and call the system directly, so that no
// other code of the C library is involved.

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>

#include "Decision.h"

namespace quorvane {
namespace {

/// The result of the system call, or -1 if it is to fail.
template <typename Result, typename Watched, typename... Values>
Result unlessItFails(Call call, Watched watched, long number, Values... values) {
  if (judge(call, watched) == Verdict::kFail) return -1;
  return static_cast<Result>(::syscall(number, values...));
}

int openAt(int folder, const char* path, int flags, mode_t mode) {
  if (judge(Call::kOpen, path) == Verdict::kFail) return -1;
  const int file = static_cast<int>(::syscall(SYS_openat, folder, path, flags, mode));
  if (file < 0) return file;
  // The C library closes folders without calling close here, so a number may now be another file.
  note(file, isWatched(path));
  if (!isWatched(path)) return file;
  record({}, "open %d %d %d %s\n", file, flags & O_DIRECTORY ? 1 : 0, flags & O_TRUNC ? 1 : 0, path);
  return file;
}

std::size_t sizeFor(Verdict verdict, std::size_t size) {
  if (verdict == Verdict::kDoNothing) return 0;
  return verdict == Verdict::kDoHalf ? std::max<std::size_t>(size / 2, 1) : size;
}

ssize_t readFrom(int file, void* bytes, std::size_t size, off_t offset, long number) {
  const Verdict verdict = judge(Call::kRead, file);
  if (verdict == Verdict::kFail) return -1;
  return ::syscall(number, file, bytes, sizeFor(verdict, size), offset);
}

ssize_t writeTo(int file, const void* bytes, std::size_t size) {
  const Verdict verdict = judge(Call::kWrite, file);
  if (verdict == Verdict::kFail) return -1;
  const long start = isWatched(file) ? ::syscall(SYS_lseek, file, 0, SEEK_CUR) : 0;
  const ssize_t written = ::syscall(SYS_write, file, bytes, sizeFor(verdict, size));
  if (written > 0 && isWatched(file))
    record({static_cast<const char*>(bytes), static_cast<std::size_t>(written)}, "write %d %ld %zd\n", file,
           start, written);
  return written;
}

/// Reports success without synchronising: no test here turns the power off, and disks are slow.
int synchronise(int file, long number) {
  if (!isWatched(file)) return static_cast<int>(::syscall(number, file));
  if (judge(Call::kSync, file) == Verdict::kFail) return -1;
  record({}, "sync %d\n", file);
  return 0;
}

int truncate(int file, off_t size) {
  const int result = unlessItFails<int>(Call::kTruncate, file, SYS_ftruncate, file, size);
  if (result == 0 && isWatched(file)) record({}, "truncate %d %ld\n", file, static_cast<long>(size));
  return result;
}

int renameTo(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
  const int result =
      unlessItFails<int>(Call::kRename, to, SYS_renameat2, fromFolder, from, toFolder, to, flags);
  if (result == 0 && isWatched(to)) record({}, "rename %s %s\n", from, to);
  return result;
}

int unlinkAt(int folder, const char* path, int flags) {
  const int result = unlessItFails<int>(Call::kUnlink, path, SYS_unlinkat, folder, path, flags);
  if (result == 0 && isWatched(path)) record({}, "unlink %s\n", path);
  return result;
}

int statAt(int folder, const char* path, struct stat* status, int flags) {
  return unlessItFails<int>(Call::kStatus, path, SYS_newfstatat, folder, path, status, flags);
}

mode_t modeBehind(int flags, std::va_list values) {
  return flags & (O_CREAT | O_TMPFILE) ? va_arg(values, mode_t) : 0;
}

using ReadFolder = dirent*(DIR*);
ReadFolder* systemsReadFolder = nullptr;
[[gnu::constructor]] void findReadFolder() {
  systemsReadFolder = reinterpret_cast<ReadFolder*>(::dlsym(RTLD_NEXT, "readdir"));
}

}  // namespace
}  // namespace quorvane

using quorvane::Call;
using quorvane::Verdict;

extern "C" {

int open(const char* path, int flags, ...) {
  std::va_list values;
  va_start(values, flags);
  const mode_t mode = quorvane::modeBehind(flags, values);
  va_end(values);
  return quorvane::openAt(AT_FDCWD, path, flags, mode);
}
int open64(const char* path, int flags, ...) {
  std::va_list values;
  va_start(values, flags);
  const mode_t mode = quorvane::modeBehind(flags, values);
  va_end(values);
  return quorvane::openAt(AT_FDCWD, path, flags, mode);
}
int openat(int folder, const char* path, int flags, ...) {
  std::va_list values;
  va_start(values, flags);
  const mode_t mode = quorvane::modeBehind(flags, values);
  va_end(values);
  return quorvane::openAt(folder, path, flags, mode);
}
int openat64(int folder, const char* path, int flags, ...) {
  std::va_list values;
  va_start(values, flags);
  const mode_t mode = quorvane::modeBehind(flags, values);
  va_end(values);
  return quorvane::openAt(folder, path, flags, mode);
}

ssize_t read(int file, void* bytes, size_t size) {
  return quorvane::readFrom(file, bytes, size, 0, SYS_read);
}
ssize_t pread(int file, void* bytes, size_t size, off_t offset) {
  return quorvane::readFrom(file, bytes, size, offset, SYS_pread64);
}
ssize_t pread64(int file, void* bytes, size_t size, off64_t offset) {
  return quorvane::readFrom(file, bytes, size, offset, SYS_pread64);
}

ssize_t write(int file, const void* bytes, size_t size) { return quorvane::writeTo(file, bytes, size); }
/// Writing only the first piece is allowed, and keeps the record simple.
ssize_t writev(int file, const iovec* pieces, int count) {
  if (!quorvane::isWatched(file) || count < 1) return ::syscall(SYS_writev, file, pieces, count);
  return quorvane::writeTo(file, pieces->iov_base, pieces->iov_len);
}

int fsync(int file) { return quorvane::synchronise(file, SYS_fsync); }
int fdatasync(int file) { return quorvane::synchronise(file, SYS_fdatasync); }

/// Closes the descriptor even if the call fails, as Linux does.
int close(int file) {
  const bool watched = quorvane::isWatched(file);
  const Verdict verdict = quorvane::judge(Call::kClose, file);
  if (watched) quorvane::note(file, false);
  if (watched) quorvane::record({}, "close %d\n", file);
  const int error = errno;
  const int result = static_cast<int>(::syscall(SYS_close, file));
  if (verdict != Verdict::kFail) return result;
  errno = error;
  return -1;
}

int ftruncate(int file, off_t size) noexcept { return quorvane::truncate(file, size); }
int ftruncate64(int file, off64_t size) noexcept { return quorvane::truncate(file, size); }

int rename(const char* from, const char* to) noexcept {
  return quorvane::renameTo(AT_FDCWD, from, AT_FDCWD, to, 0);
}
int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept {
  return quorvane::renameTo(fromFolder, from, toFolder, to, 0);
}
int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
  return quorvane::renameTo(fromFolder, from, toFolder, to, flags);
}
int unlink(const char* path) noexcept { return quorvane::unlinkAt(AT_FDCWD, path, 0); }
int unlinkat(int folder, const char* path, int flags) noexcept {
  return quorvane::unlinkAt(folder, path, flags);
}

int fchmod(int file, mode_t mode) noexcept {
  return quorvane::unlessItFails<int>(Call::kMode, file, SYS_fchmod, file, mode);
}
int fchown(int file, uid_t owner, gid_t group) noexcept {
  return quorvane::unlessItFails<int>(Call::kOwner, file, SYS_fchown, file, owner, group);
}
int flock(int file, int operation) noexcept {
  return quorvane::unlessItFails<int>(Call::kLock, file, SYS_flock, file, operation);
}
int mkdir(const char* path, mode_t mode) noexcept {
  const int result = quorvane::unlessItFails<int>(Call::kMakeFolder, path, SYS_mkdirat, AT_FDCWD, path, mode);
  if (result == 0 && quorvane::isWatched(path)) quorvane::record({}, "mkdir %s\n", path);
  return result;
}
int faccessat(int folder, const char* path, int mode, int flags) noexcept {
  return quorvane::unlessItFails<int>(Call::kAccess, path, SYS_faccessat2, folder, path, mode, flags);
}

int stat(const char* path, struct stat* status) noexcept {
  return quorvane::statAt(AT_FDCWD, path, status, 0);
}
int lstat(const char* path, struct stat* status) noexcept {
  return quorvane::statAt(AT_FDCWD, path, status, AT_SYMLINK_NOFOLLOW);
}
int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept {
  return quorvane::statAt(folder, path, status, flags);
}
int fstat(int file, struct stat* status) noexcept {
  return quorvane::unlessItFails<int>(Call::kStatus, file, SYS_newfstatat, file, "", status, AT_EMPTY_PATH);
}
int statx(int folder, const char* path, int flags, unsigned mask, struct statx* status) noexcept {
  return quorvane::unlessItFails<int>(Call::kStatus, path, SYS_statx, folder, path, flags, mask, status);
}
ssize_t readlink(const char* path, char* target, size_t size) noexcept {
  return quorvane::unlessItFails<ssize_t>(Call::kReadLink, path, SYS_readlinkat, AT_FDCWD, path, target,
                                          size);
}
dirent* readdir(DIR* folder) {
  if (quorvane::judge(Call::kList, ::dirfd(folder)) == Verdict::kFail) return nullptr;
  return quorvane::systemsReadFolder(folder);
}
}
