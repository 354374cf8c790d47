#include "batch/FrameFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "batch/Streams.h"
#include "document/Folder.h"
#include "document/PartialFiles.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = "frame-";
constexpr std::string_view kSuffix = ".png";
constexpr std::size_t kFewestDigits = 6;

void requireNoFrames(const fs::path& folder) {
  for (const std::string& name : framesIn(folder))
    throw BatchFailure(nameOf(folder), "holds frames of another run (" + name + ")");
}

/// The index of the last record: sweep 0 is the first; the last sweep is recorded even if it is no multiple.
std::int64_t lastRecord(const BatchOptions& options) {
  return options.sweeps / options.every + (options.sweeps % options.every == 0 ? 0 : 1);
}

void makeFolder(const fs::path& folder) {
  std::error_code error;
  std::vector<fs::path> foldersThatChange;
  fs::path path = folder;
  for (; !path.empty() && !fs::exists(path, error); path = path.parent_path())
    foldersThatChange.push_back(path.parent_path());
  // Otherwise the standard libraries report different errors for a file in the path.
  if (fs::exists(path, error) && !fs::is_directory(path, error))
    error = std::make_error_code(std::errc::not_a_directory);
  else
    fs::create_directories(folder, error);
  if (error) throw BatchFailure(nameOf(folder), error.message());
  // Without this, a loss of power could take the folder with its synchronised frames.
  for (const fs::path& changed : foldersThatChange) syncFolder(changed);
}

}  // namespace

FrameNames FrameNames::forLast(std::int64_t lastNumber) {
  return FrameNames(static_cast<std::int64_t>(std::max(kFewestDigits, std::to_string(lastNumber).size())));
}

FrameNames FrameNames::forRun(const BatchOptions& options) { return forLast(lastRecord(options)); }

std::string FrameNames::at(std::int64_t number) const {
  const std::string digits = std::to_string(number);
  const auto length = std::max(digits.size(), static_cast<std::size_t>(digits_));
  std::string name(kPrefix);
  return name.append(length - digits.size(), '0').append(digits).append(kSuffix);
}

bool FrameNames::isFrame(const std::string& name) {
  if (name.size() <= kPrefix.size() + kSuffix.size()) return false;
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  return name.starts_with(kPrefix) && name.ends_with(kSuffix) &&
         std::all_of(name.begin() + kPrefix.size(), name.end() - kSuffix.size(), isDigit);
}

std::int64_t FrameNames::numberOf(const std::string& name) {
  std::int64_t number = -1;
  const char* last = name.data() + name.size() - kSuffix.size();
  const auto [end, error] = std::from_chars(name.data() + kPrefix.size(), last, number);
  return error == std::errc{} && end == last ? number : -1;
}

std::vector<std::string> framesIn(const fs::path& folder) {
  std::vector<std::string> names;
  if (const auto error = readFolder(folder, names)) throw BatchFailure(nameOf(folder), error.message());
  names.erase(std::remove_if(names.begin(), names.end(),
                             [](const std::string& name) { return !FrameNames::isFrame(name); }),
              names.end());
  return names;
}

FrameFolder::FrameFolder(fs::path folder, FrameNames names) : folder_(std::move(folder)), names_(names) {
  makeFolder(folder_);
  whileLocked([&] {
    requireNoFrames(folder_);
    // What a run left that was killed before its first frame.
    sweepPartialFiles(folder_ / names_.at(0));
    checkOutput(folder_ / names_.at(0));
  });
}

FrameFolder::FrameFolder(fs::path folder, FrameNames names, FramesBefore before)
    : folder_(std::move(folder)),
      names_(names),
      next_(before.frames.number),
      digest_(std::move(before.digest)) {
  whileLocked([&] {
    take(before);
    checkOutput(folder_ / names_.at(next_));
  });
}

/// Work of a constructor, which must not leave the folder locked if it fails.
template <typename Work>
void FrameFolder::whileLocked(const Work& work) {
  lock();
  try {
    work();
  } catch (...) {
    ::close(lock_);
    throw;
  }
}

void FrameFolder::take(const FramesBefore& before) {
  const FrameNames old(before.frames.digits);
  const auto require = [&](bool done, const fs::path& path) {
    if (!done && errno != ENOENT) throw BatchFailure(nameOf(path), std::generic_category().message(errno));
  };
  // What a kill left of the frame that was being written.
  for (const FrameNames& names : {old, names_}) sweepPartialFiles(folder_ / names.at(before.behind));
  // From the last one, so that there is no gap if this is interrupted.
  for (std::int64_t k = before.behind; k-- > next_;)
    for (const FrameNames& names : {old, names_}) {
      const fs::path path = folder_ / names.at(k);
      require(::unlink(path.c_str()) == 0, path);
    }
  if (old.digits() == names_.digits()) return;
  for (std::int64_t k = 0; k < next_; ++k) {
    const fs::path from = folder_ / old.at(k), to = folder_ / names_.at(k);
    require(::rename(from.c_str(), to.c_str()) == 0, from);
  }
  syncFolder(folder_);
}

FrameFolder::~FrameFolder() { ::close(lock_); }

/// A lock of the system, which ends with the process, so that no stale lock can stay.
void FrameFolder::lock() {
  do lock_ = ::open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  while (lock_ < 0 && errno == EINTR);
  if (lock_ < 0) throw BatchFailure(nameOf(folder_), std::generic_category().message(errno));
  // Without support for locks, requireNoFrames still detects frames of an earlier run.
  if (::flock(lock_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return;
  ::close(lock_);
  throw BatchFailure(nameOf(folder_), "gets frames of another run at this moment");
}

void FrameFolder::add(std::string_view png) {
  writeOutput(folder_ / names_.at(next_++), png);
  digest_.add(png);
}

std::vector<RecordedFrame> FrameFolder::content() const {
  std::vector<RecordedFrame> frames;
  for (std::int64_t number = 0; number < next_; ++number)
    frames.push_back({names_.at(number), fingerprintOfFile(folder_ / names_.at(number))});
  return frames;
}

WrittenFrames FrameFolder::written() const {
  return {.number = next_, .digits = names_.digits(), .digest = digest_.value()};
}

}  // namespace quorvane
