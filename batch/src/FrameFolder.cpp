#include "batch/FrameFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "batch/Streams.h"
#include "document/Folder.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = "frame-";
constexpr std::string_view kSuffix = ".png";
constexpr std::size_t kFewestDigits = 6;

void requireNoFrames(const fs::path& folder) {
  std::vector<std::string> names;
  if (const auto error = readFolder(folder, names)) throw BatchFailure(nameOf(folder), error.message());
  for (const std::string& name : names)
    if (FrameFolder::isFrame(name))
      throw BatchFailure(nameOf(folder), "holds frames of another run (" + name + ")");
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

FrameFolder::FrameFolder(fs::path folder, std::int64_t lastNumber)
    : folder_(std::move(folder)), digits_(std::max(kFewestDigits, std::to_string(lastNumber).size())) {
  makeFolder(folder_);
  lock();
  try {
    requireNoFrames(folder_);
    checkOutput(pathOf(0));
  } catch (...) {
    ::close(lock_);
    throw;
  }
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

bool FrameFolder::isFrame(const std::string& name) {
  if (name.size() <= kPrefix.size() + kSuffix.size()) return false;
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  return name.starts_with(kPrefix) && name.ends_with(kSuffix) &&
         std::all_of(name.begin() + kPrefix.size(), name.end() - kSuffix.size(), isDigit);
}

std::vector<RecordedFrame> FrameFolder::content() const {
  std::vector<RecordedFrame> frames;
  for (std::int64_t number = 0; number < next_; ++number) {
    const fs::path frame = pathOf(number);
    frames.push_back({frame.filename(), fingerprintOfFile(frame)});
  }
  return frames;
}

void FrameFolder::add(std::string_view png) { writeOutput(pathOf(next_++), png); }

fs::path FrameFolder::pathOf(std::int64_t number) const {
  const std::string digits = std::to_string(number);
  std::string name(kPrefix);
  name.append(digits_ - digits.size(), '0').append(digits).append(kSuffix);
  return folder_ / name;
}

}  // namespace quorvane
