#include "document/PartialFiles.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <new>
#include <optional>
#include <string_view>
#include <vector>

#include "SystemCalls.h"
#include "Target.h"
#include "document/Folder.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kMark = ".quorvane-";
constexpr std::string_view kEnd = ".partial";

/// A prefix of a name, not ending within a UTF-8 character.
std::string cut(std::string name, std::size_t bytes) {
  const auto isContinued = [&] { return (static_cast<unsigned char>(name[bytes]) & 0xC0) == 0x80; };
  if (name.size() <= bytes) return name;
  while (bytes > 0 && isContinued()) --bytes;
  name.resize(bytes);
  return name;
}

/// The process id in the name of a partial file of the target; none for other names.
std::optional<pid_t> processOf(std::string_view name, std::string_view target) {
  const std::string start = '.' + std::string(target) + std::string(kMark);
  if (!name.starts_with(start) || !name.ends_with(kEnd)) return std::nullopt;
  name.remove_prefix(start.size());
  pid_t process = 0;
  const auto [rest, error] = std::from_chars(name.data(), name.data() + name.size(), process);
  if (error != std::errc{} || process <= 0) return std::nullopt;
  return *rest == '-' || *rest == '.' ? std::optional(process) : std::nullopt;
}

/// In containers every run may have the same process id, so that of this process proves nothing.
bool isGone(pid_t process) { return process == ::getpid() || (::kill(process, 0) != 0 && errno == ESRCH); }

/// Removes a file that nobody writes. The lock is held until it is removed, so that a process that has just
/// created it notices. On a shared folder a file that a process on another machine is writing stays.
void removeIfLeftAlone(const fs::path& path) {
  const int file = openFile(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) return;
  if (::flock(file, LOCK_EX | LOCK_NB) == 0 && isAt(path, file)) ::unlink(path.c_str());
  ::close(file);
}

std::vector<fs::path> filesOfGoneProcesses(const fs::path& path) {
  Target target;
  if (findTarget(path, target) || target.isDevice()) return {};
  const fs::path folder = target.path.parent_path();
  std::vector<std::string> names;
  if (readFolder(folder, names)) return {};
  std::vector<fs::path> files;
  for (const std::string& name : names) {
    const auto process = processOf(name, target.path.filename().native());
    if (process && isGone(*process)) files.push_back(folder / name);
  }
  return files;
}

}  // namespace

namespace {

std::string nameFor(const std::string& target, pid_t process, int attempt, std::size_t longest) {
  std::string end = std::string(kMark) + std::to_string(process);
  if (attempt > 0) end += '-' + std::to_string(attempt);
  end += kEnd;
  if (target.empty()) return end;
  return '.' + cut(target, longest - std::min(longest, 1 + end.size())) + end;
}

/// Takes a whole number from the beginning of a text; -1 if there is none.
int takeNumber(std::string_view& text) {
  int number = -1;
  const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{}) return -1;
  text.remove_prefix(static_cast<std::size_t>(rest - text.data()));
  return number;
}

}  // namespace

std::string partialName(const std::string& target, int attempt, std::size_t longest) {
  return nameFor(target, ::getpid(), attempt, longest);
}

bool isPartialName(const std::string& name, const std::string& target, std::size_t longest) {
  const auto mark = name.rfind(kMark);
  if (mark == std::string::npos) return false;
  std::string_view numbers = std::string_view(name).substr(mark + kMark.size());
  const int process = takeNumber(numbers);
  int attempt = 0;
  if (numbers.starts_with('-')) {
    numbers.remove_prefix(1);
    attempt = takeNumber(numbers);
  }
  // Made again from its parts, since a name may be written in one way only.
  return process > 0 && attempt >= 0 &&
         (name == nameFor(target, process, attempt, longest) ||
          name == nameFor("", process, attempt, longest));
}

fs::path partialBeside(const fs::path& path, const std::string& name) {
  Target target;
  if (findTarget(path, target) || target.isDevice()) return {};
  const fs::path folder = target.path.parent_path();
  return isPartialName(name, target.path.filename(), longestName(folder)) ? folder / name : fs::path();
}

bool holdPartialFile(int file) {
  // Without locks only the process id tells whether the file is in use.
  if (::flock(file, LOCK_EX | LOCK_NB) != 0) return errno != EWOULDBLOCK;
  struct stat status;
  const bool isRemoved = ::fstat(file, &status) == 0 && status.st_nlink == 0;
  return !isRemoved;
}

void sweepPartialFiles(const fs::path& path) {
  try {
    for (const fs::path& file : filesOfGoneProcesses(path)) removeIfLeftAlone(file);
  } catch (const std::bad_alloc&) {
    // Failure is ignored: the target is written, and the next write tries again.
  }
}

}  // namespace quorvane
