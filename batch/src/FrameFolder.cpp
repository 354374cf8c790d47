#include "batch/FrameFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include "batch/Streams.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = "frame-";
constexpr std::string_view kSuffix = ".png";
constexpr std::size_t kFewestDigits = 6;

void requireNoFrames(const fs::path& folder) {
  for (const auto& entry : fs::directory_iterator(folder))
    if (const std::string name = entry.path().filename(); FrameFolder::isFrame(name))
      throw BatchFailure(nameOf(folder), "holds frames of another run (" + name + ")");
}

/// Throws fs::filesystem_error as BatchFailure.
template <typename Work>
void inFolder(const fs::path& folder, const Work& work) {
  try {
    work();
  } catch (const fs::filesystem_error& error) {
    throw BatchFailure(nameOf(folder), error.code().message());
  }
}

}  // namespace

FrameFolder::FrameFolder(fs::path folder, std::int64_t lastNumber)
    : folder_(std::move(folder)), digits_(std::max(kFewestDigits, std::to_string(lastNumber).size())) {
  inFolder(folder_, [&] { fs::create_directories(folder_); });
  lock();
  try {
    inFolder(folder_, [&] { requireNoFrames(folder_); });
    checkOutput(pathOf(0));
  } catch (...) {
    ::close(lock_);
    throw;
  }
}

FrameFolder::~FrameFolder() { ::close(lock_); }

/// Held by the system for as long as the process lives, so that nothing is left of it.
void FrameFolder::lock() {
  lock_ = ::open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (lock_ < 0) throw BatchFailure(nameOf(folder_), std::generic_category().message(errno));
  // Where there are no locks, runs that come one after another are still told apart.
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

void FrameFolder::add(std::string_view png) { writeOutput(pathOf(next_++), png); }

fs::path FrameFolder::pathOf(std::int64_t number) const {
  const std::string digits = std::to_string(number);
  std::string name(kPrefix);
  name.append(digits_ - digits.size(), '0').append(digits).append(kSuffix);
  return folder_ / name;
}

}  // namespace quorvane
