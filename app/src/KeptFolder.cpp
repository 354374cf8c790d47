#include "app/KeptFolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include "document/AtomicFile.h"
#include "document/DocumentFile.h"
#include "document/PartialFiles.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kForm = "0000-00-00 00.00.00.quorvane";
constexpr const char* kTold = ".told";

std::error_code lastError() { return {errno, std::generic_category()}; }

fs::path folderVariable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

bool isCopyName(std::string_view name) {
  const auto fits = [](char c, char form) { return form == '0' ? c >= '0' && c <= '9' : c == form; };
  return std::equal(name.begin(), name.end(), kForm.begin(), kForm.end(), fits);
}

std::string copyName(std::time_t when) {
  std::tm local = {};
  ::localtime_r(&when, &local);
  char name[64];
  return {name, std::strftime(name, sizeof name, "%Y-%m-%d %H.%M.%S.quorvane", &local)};
}

/// Folders for state are private, so missing ones are created private.
std::error_code makeFolder(const fs::path& folder) {
  std::error_code error;
  if (fs::is_directory(folder, error)) return {};
  if (folder.has_relative_path())
    if (const auto failed = makeFolder(folder.parent_path())) return failed;
  return ::mkdir(folder.c_str(), S_IRWXU) == 0 || errno == EEXIST ? std::error_code{} : lastError();
}

bool makePrivateFile(const fs::path& path) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
  return file >= 0 && ::close(file) == 0;
}

void forEachName(const fs::path& folder, const std::function<void(const fs::directory_entry&)>& call) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
    call(*entry);
}

/// Newest first by modification time, since names go back when clocks are set back, as each autumn.
struct LastFirst {
  std::vector<std::pair<fs::file_time_type, fs::path>> files;

  void add(const fs::directory_entry& entry) {
    std::error_code error;
    files.emplace_back(entry.last_write_time(error), entry.path());
  }
  std::vector<fs::path> take() {
    std::sort(files.begin(), files.end(), std::greater<>());
    std::vector<fs::path> paths;
    for (auto& [time, path] : files) paths.push_back(std::move(path));
    return paths;
  }
};

bool isCopy(const fs::directory_entry& entry) {
  std::error_code error;
  return isCopyName(entry.path().filename().native()) && fs::is_regular_file(entry.symlink_status(error));
}

/// A name that was claimed but not written to. It may be in use until some time has passed.
bool isForsaken(const fs::directory_entry& entry) {
  constexpr std::chrono::minutes longEnough{10};
  std::error_code error;
  return entry.file_size(error) == 0 &&
         fs::file_time_type::clock::now() - entry.last_write_time(error) > longEnough;
}

void removeHalfWritten(const fs::path& folder) {
  std::vector<fs::path> forsaken;
  std::set<fs::path> targets;
  forEachName(folder, [&](const fs::directory_entry& entry) {
    const std::string name = entry.path().filename();
    if (isCopy(entry) && isForsaken(entry)) forsaken.push_back(entry.path());
    if (name.starts_with('.') && isCopyName(name.substr(1, kForm.size())))
      targets.insert(folder / name.substr(1, kForm.size()));
  });
  for (const fs::path& copy : forsaken) ::unlink(copy.c_str());
  for (const fs::path& target : targets) sweepPartialFiles(target);
}

struct flock wholeFile(short type) {
  struct flock lock = {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  return lock;
}

std::set<std::string> toldNames(const fs::path& folder) {
  std::string text;
  if (readDocumentFile(folder / kTold, DocumentSource::kFile, text)) return {};
  std::set<std::string> names;
  std::istringstream lines(text);
  for (std::string name; std::getline(lines, name);) names.insert(name);
  return names;
}

void noteTold(const fs::path& folder, const std::vector<fs::path>& copies) {
  std::string names;
  for (const fs::path& copy : copies) names += copy.filename().string() + '\n';
  makePrivateFile(folder / kTold);
  // If this cannot be written, the user is told once more.
  static_cast<void>(writeFileAtomically(folder / kTold, names, waitNever));
}

}  // namespace

fs::path keptFolder() {
  if (const fs::path state = folderVariable("XDG_STATE_HOME"); state.is_absolute()) return state / "quorvane";
  const fs::path home = folderVariable("HOME");
  std::error_code error;
  if (!home.is_absolute() || !fs::is_directory(home, error)) return {};
  return home / ".local" / "state" / "quorvane";
}

std::error_code claimCopy(const fs::path& folder, fs::path& copy) {
  if (const auto error = makeFolder(folder)) return error;
  const std::time_t now = std::time(nullptr);
  constexpr int seconds = 100;
  for (int later = 0; later < seconds; ++later) {
    copy = folder / copyName(now + later);
    if (makePrivateFile(copy)) return {};
    if (errno != EEXIST) break;
  }
  return lastError();
}

void markInUse(int copy) {
  // If the file system has no locks, a copy counts as that of a closed window.
  struct flock lock = wholeFile(F_WRLCK);
  static_cast<void>(::fcntl(copy, F_OFD_SETLK, &lock));
}

bool isInUse(const fs::path& copy) {
  const int file = ::open(copy.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) return false;
  struct flock lock = wholeFile(F_RDLCK);
  const bool locked = ::fcntl(file, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
  ::close(file);
  return locked;
}

std::vector<fs::path> keptCopies(const fs::path& folder) {
  LastFirst copies;
  forEachName(folder, [&](const fs::directory_entry& entry) {
    std::error_code error;
    if (isCopy(entry) && entry.file_size(error) > 0) copies.add(entry);
  });
  return copies.take();
}

void tidyKeptFolder(const fs::path& folder) {
  const std::vector<fs::path> copies = keptCopies(folder);
  for (std::size_t i = kMaxKeptCopies; i < copies.size(); ++i)
    if (!isInUse(copies[i])) ::unlink(copies[i].c_str());
  removeHalfWritten(folder);
}

std::vector<fs::path> takeUntoldCopies(const fs::path& folder) {
  const std::set<std::string> names = toldNames(folder);
  const auto isTold = [&](const fs::path& copy) { return names.contains(copy.filename()); };
  std::vector<fs::path> copies = keptCopies(folder);
  std::erase_if(copies, [&](const fs::path& copy) { return !isTold(copy) && isInUse(copy); });
  std::vector<fs::path> untold = copies;
  std::erase_if(untold, isTold);
  if (!untold.empty()) noteTold(folder, copies);
  return untold;
}

}  // namespace quorvane
