#include "batch/Targets.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <vector>

#include "batch/FrameFolder.h"
#include "batch/Messages.h"
#include "batch/Results.h"
#include "batch/Streams.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

/// The identity of a path, independent of its spelling: the inode of the file, or of its nearest existing
/// ancestor and the names below that.
struct Place {
  dev_t device = 0;
  ino_t inode = 0;
  std::vector<std::string> names = {};
  bool isRegular = false;

  /// True if the other place is this one or inside it.
  bool holds(const Place& other) const {
    return device == other.device && inode == other.inode && names.size() <= other.names.size() &&
           std::equal(names.begin(), names.end(), other.names.begin());
  }
  bool is(const Place& other) const { return holds(other) && names.size() == other.names.size(); }
};

Place placeOf(const struct stat& status) {
  return {status.st_dev, status.st_ino, {}, S_ISREG(status.st_mode)};
}

/// Appends a name below a folder that does not exist, where ".." can only undo a name.
void enter(Place& place, const std::string& name) {
  if (name.empty() || name == ".") return;
  if (name == ".." && !place.names.empty())
    place.names.pop_back();
  else
    place.names.push_back(name);
}

Place placeOf(const fs::path& path, int links = 0) {
  constexpr int mostLinks = 40;
  struct stat status;
  if (::stat(path.empty() ? "." : path.c_str(), &status) == 0) return placeOf(status);
  // Nothing is known about it; writing to it reports the reason.
  const bool unknown = (errno != ENOENT && errno != ENOTDIR) || path == path.root_path();
  if (unknown || links > mostLinks) return {0, 0, {path.native()}};
  if (!path.has_filename()) return placeOf(path.parent_path(), links);  // FOLDER/ is FOLDER
  if (::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode)) {
    std::error_code error;
    const fs::path next = fs::read_symlink(path, error);
    if (!error) return placeOf(path.parent_path() / next, links + 1);
  }
  Place place = placeOf(path.parent_path(), links);
  enter(place, path.filename());
  place.isRegular = false;
  return place;
}

Place placeOfStream(int file) {
  struct stat status;
  return ::fstat(file, &status) == 0 ? placeOf(status) : Place{0, 0, {"-"}};
}

Place placeOfTarget(const fs::path& target) {
  return isStandardStream(target) ? placeOfStream(STDOUT_FILENO) : placeOf(target);
}

std::string spoken(const fs::path& target) {
  return isStandardStream(target) ? "standard output (-)" : nameOf(target);
}

std::optional<std::string> conflictWithDocument(const BatchOptions& options) {
  const Place document =
      isStandardStream(options.document) ? placeOfStream(STDIN_FILENO) : placeOf(options.document);
  if (!document.isRegular) return std::nullopt;
  for (const Result& result : allResults()) {
    const auto& target = options.*result.target;
    if (!target || result.kind != Result::kFile || result.mayReplaceDocument) continue;
    if (placeOfTarget(*target).is(document))
      return spoken(*target) + ": is the document itself, which only --output may replace";
  }
  if (options.checkpoint && placeOf(*options.checkpoint).is(document))
    return spoken(*options.checkpoint) + ": is the document itself, which only --output may replace";
  return std::nullopt;
}

std::optional<std::string> conflictOfFiles(const std::vector<fs::path>& files) {
  std::vector<Place> seen;
  for (const fs::path& file : files) {
    const Place place = placeOfTarget(file);
    if (std::any_of(seen.begin(), seen.end(), [&](const Place& other) { return other.is(place); }))
      return spoken(file) + ": is asked for twice";
    seen.push_back(place);
  }
  return std::nullopt;
}

std::optional<std::string> conflictWithFrames(const std::vector<fs::path>& files, const fs::path& frames) {
  const Place folder = placeOf(frames);
  for (const fs::path& file : files) {
    const Place place = placeOfTarget(file);
    if (place.is(folder)) return spoken(file) + ": is asked for twice";
    if (place.holds(folder)) return spoken(file) + ": is asked for as a file and as a folder for --frames";
    // If the file exists already, FrameFolder refuses the folder.
    if (folder.holds(place) && place.names.size() == folder.names.size() + 1 &&
        FrameNames::isFrame(place.names.back()))
      return spoken(file) + ": is asked for twice, it would be one of the frames";
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> conflictOf(const BatchOptions& options) {
  std::vector<fs::path> files;
  for (const Result& result : allResults())
    if (const auto& target = options.*result.target; target && result.kind == Result::kFile)
      files.push_back(*target);
  if (options.checkpoint) files.push_back(*options.checkpoint);
  if (auto conflict = conflictWithDocument(options)) return conflict;
  if (auto conflict = conflictOfFiles(files)) return conflict;
  return options.frames ? conflictWithFrames(files, *options.frames) : std::nullopt;
}

}  // namespace quorvane
