#include "batch/WrittenBefore.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "batch/FrameFolder.h"
#include "document/PartialFiles.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

enum class Likeness { kSame, kChanged, kMissing };

/// A regular file that is open for reading.
class OpenedFile {
 public:
  explicit OpenedFile(const fs::path& path) {
    do file_ = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    while (file_ < 0 && errno == EINTR);
    struct stat status;
    if (file_ < 0 && (errno == ENOENT || errno == ENOTDIR)) return;
    if (file_ < 0 || ::fstat(file_, &status) != 0) {
      const int error = errno;
      if (file_ >= 0) ::close(file_);
      throw BatchFailure(nameOf(path), std::generic_category().message(error));
    }
    size_ = S_ISREG(status.st_mode) ? status.st_size : -1;
  }
  ~OpenedFile() {
    if (file_ >= 0) ::close(file_);
  }
  OpenedFile(const OpenedFile&) = delete;
  OpenedFile& operator=(const OpenedFile&) = delete;

  bool exists() const { return file_ >= 0; }
  /// -1 for what is no regular file.
  std::int64_t size() const { return size_; }

  /// Adds bytes to a digest. False if they cannot be read.
  bool read(std::int64_t from, std::int64_t to, DigestOf& digest) const {
    std::vector<char> block(1 << 16);
    while (from < to) {
      const auto most = static_cast<std::size_t>(std::min<std::int64_t>(to - from, 1 << 16));
      const ssize_t size = ::pread(file_, block.data(), most, from);
      if (size < 0 && errno == EINTR) continue;
      if (size <= 0) return false;
      digest.add({block.data(), static_cast<std::size_t>(size)});
      from += size;
    }
    return true;
  }

 private:
  int file_ = -1;
  std::int64_t size_ = -1;
};

/// Whether a file begins with the rows. size: of the whole file if that is known, else -1. digest: continued
/// by the rows.
Likeness likenessOf(const fs::path& path, const WrittenRows& rows, std::int64_t size, DigestOf& digest) {
  if (path.empty()) return Likeness::kMissing;
  const OpenedFile file(path);
  if (!file.exists()) return Likeness::kMissing;
  const bool isLong = file.size() >= rows.bytes && (size < 0 || file.size() == size);
  const bool isSame =
      isLong && file.read(rows.beginning, rows.bytes, digest) && digest.value() == rows.digest;
  return isSame ? Likeness::kSame : Likeness::kChanged;
}

/// The growing file, or the target that it has replaced since. An unfinished growing file of a continuation
/// may have the name of the first one, so that the target counts, too.
RowsBefore findRows(const fs::path& target, const WrittenRows& rows, std::uint64_t records) {
  RowsBefore before{.rows = rows,
                    .source = partialBeside(target, rows.partial),
                    .isPartial = true,
                    .records = static_cast<std::int64_t>(records),
                    .digest = {}};
  const Likeness partial = likenessOf(before.source, rows, -1, before.digest);
  if (partial == Likeness::kSame) return before;
  const fs::path growing = std::exchange(before.source, rows.bytes > 0 ? target : fs::path());
  before.isPartial = false;
  before.digest = {};
  if (rows.bytes == 0) return before;
  const Likeness finished = likenessOf(target, rows, rows.finished, before.digest);
  if (finished == Likeness::kSame) return before;
  if (partial == Likeness::kChanged)
    throw BatchFailure(nameOf(target),
                       "its rows in " + nameOf(growing) + " were changed since the checkpoint");
  throw BatchFailure(nameOf(target), finished == Likeness::kChanged ? "was changed since the checkpoint"
                                                                    : "is missing since the checkpoint");
}

FramesBefore findFrames(const fs::path& folder, const WrittenFrames& frames, const BatchOptions& options) {
  std::error_code error;
  if (!fs::exists(folder, error) && !error)
    throw BatchFailure(nameOf(folder), "is missing since the checkpoint");
  FramesBefore before{.frames = frames, .behind = frames.number, .digest = {}};
  const FrameNames names(frames.digits), newNames = FrameNames::forRun(options);
  for (std::int64_t k = 0; k < frames.number; ++k) {
    // A continuation with a longer or shorter name for each number may have been interrupted.
    const OpenedFile file(folder / names.at(k)), renamed(folder / newNames.at(k));
    const OpenedFile& frame = file.exists() ? file : renamed;
    if (!frame.exists()) throw BatchFailure(nameOf(folder / names.at(k)), "is missing since the checkpoint");
    if (!frame.read(0, frame.size(), before.digest))
      throw BatchFailure(nameOf(folder / names.at(k)), "cannot be read");
  }
  if (before.digest.value() != frames.digest)
    throw BatchFailure(nameOf(folder), "its frames were changed since the checkpoint");
  return before;
}

/// The frames behind those of the checkpoint. They follow each other without a gap, since the run wrote them;
/// others are not its own.
void findFramesBehind(const fs::path& folder, FramesBefore& before, const BatchOptions& options) {
  const FrameNames names(before.frames.digits), newNames = FrameNames::forRun(options);
  std::error_code error;
  while (fs::exists(fs::symlink_status(folder / names.at(before.behind), error)) ||
         fs::exists(fs::symlink_status(folder / newNames.at(before.behind), error)))
    ++before.behind;
  for (const std::string& name : framesIn(folder)) {
    const std::int64_t number = FrameNames::numberOf(name);
    const bool isOwn =
        number >= 0 && number < before.behind && (name == names.at(number) || name == newNames.at(number));
    if (!isOwn) throw BatchFailure(nameOf(folder), "holds a frame of another run (" + name + ")");
  }
}

}  // namespace

WrittenBefore findWritten(const RunSoFar& state, Messages& messages) {
  WrittenBefore before;
  const BatchOptions& options = state.options;
  const auto guarded = [&](const fs::path& target, const auto& work) {
    try {
      work();
    } catch (const std::exception& error) {
      messages.fail(lineOf(error, nameOf(target)));
    }
  };
  const auto find = [&](const std::optional<fs::path>& target, const std::optional<WrittenRows>& rows,
                        std::optional<RowsBefore>& found) {
    if (target) guarded(*target, [&] { found = findRows(*target, *rows, state.records); });
  };
  find(options.populations, state.populations, before.populations);
  find(options.measure, state.measure, before.measure);
  find(options.lattices, state.lattices, before.lattices);
  if (options.frames)
    guarded(*options.frames, [&] {
      before.frames = findFrames(*options.frames, *state.frames, options);
      findFramesBehind(*options.frames, *before.frames, options);
    });
  return before;
}

}  // namespace quorvane
