#include "batch/FrameFolder.h"

#include <algorithm>
#include <string>
#include <utility>

#include "batch/Streams.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = "frame-";
constexpr std::string_view kSuffix = ".png";
constexpr std::size_t kFewestDigits = 6;

bool isFrame(const std::string& name) {
  if (name.size() <= kPrefix.size() + kSuffix.size()) return false;
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  return name.starts_with(kPrefix) && name.ends_with(kSuffix) &&
         std::all_of(name.begin() + kPrefix.size(), name.end() - kSuffix.size(), isDigit);
}

void requireNoFrames(const fs::path& folder) {
  for (const auto& entry : fs::directory_iterator(folder))
    if (const std::string name = entry.path().filename(); isFrame(name))
      throw BatchFailure(folder.string(), "holds frames of another run (" + name + ")");
}

void prepare(const fs::path& folder) {
  try {
    fs::create_directories(folder);
    requireNoFrames(folder);
  } catch (const fs::filesystem_error& error) {
    throw BatchFailure(folder.string(), error.code().message());
  }
}

}  // namespace

FrameFolder::FrameFolder(fs::path folder, std::int64_t lastNumber)
    : folder_(std::move(folder)), digits_(std::max(kFewestDigits, std::to_string(lastNumber).size())) {
  prepare(folder_);
  checkOutput(pathOf(0));
}

void FrameFolder::add(std::string_view png) { writeOutput(pathOf(next_++), png); }

fs::path FrameFolder::pathOf(std::int64_t number) const {
  const std::string digits = std::to_string(number);
  std::string name(kPrefix);
  name.append(digits_ - digits.size(), '0').append(digits).append(kSuffix);
  return folder_ / name;
}

}  // namespace quorvane
