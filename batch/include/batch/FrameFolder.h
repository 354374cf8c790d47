#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "batch/CommandLine.h"
#include "batch/RunSoFar.h"
#include "batch/WrittenBefore.h"
#include "checkpoint/Digest.h"
#include "record/Record.h"

namespace quorvane {

/// The names of the frames of a run, frame-000000.png, frame-000001.png and so on. All have the same length,
/// so that they sort by number.
class FrameNames {
 public:
  /// digits: of the number in each name.
  explicit FrameNames(std::int64_t digits) : digits_(digits) {}
  /// Those of a run, whose last number decides on their length.
  static FrameNames forLast(std::int64_t lastNumber);
  static FrameNames forRun(const BatchOptions& options);

  std::string at(std::int64_t number) const;
  std::int64_t digits() const { return digits_; }

  /// True if a file name is that of a frame of any run.
  static bool isFrame(const std::string& name);
  /// The number in such a name; -1 if it is too large.
  static std::int64_t numberOf(const std::string& name);

 private:
  std::int64_t digits_;
};

/// The names of all frames in a folder, unsorted. Throws BatchFailure.
std::vector<std::string> framesIn(const std::filesystem::path& folder);

/// A folder of numbered pictures. Locks the folder against other runs during its lifetime.
class FrameFolder {
 public:
  /// Makes the folder, and those above it, if they do not exist. Throws BatchFailure if it cannot, if no file
  /// can be written there, or if the folder has, or is getting, frames of another run: a film would mix them.
  FrameFolder(std::filesystem::path folder, std::int64_t lastNumber)
      : FrameFolder(std::move(folder), FrameNames::forLast(lastNumber)) {}
  FrameFolder(std::filesystem::path folder, FrameNames names);
  /// Goes on behind frames that were found; removes those behind them, and gives the others their names in
  /// this run.
  FrameFolder(std::filesystem::path folder, FrameNames names, FramesBefore before);
  ~FrameFolder();
  FrameFolder(const FrameFolder&) = delete;
  FrameFolder& operator=(const FrameFolder&) = delete;

  /// The frames written so far, in their order. Reads their files. Throws std::system_error.
  std::vector<RecordedFrame> content() const;

  /// Writes the next frame, the first with number 0, as writeOutput does.
  void add(std::string_view png);

  /// What is needed to go on with the frames so far, which are on the disk.
  WrittenFrames written() const;

 private:
  void lock();
  void take(const FramesBefore& before);
  template <typename Work>
  void whileLocked(const Work& work);

  std::filesystem::path folder_;
  FrameNames names_;
  std::int64_t next_ = 0;
  DigestOf digest_;
  int lock_ = -1;
};

}  // namespace quorvane
