#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

#include "record/Record.h"

namespace quorvane {

/// A folder of numbered pictures, frame-000000.png, frame-000001.png and so on. All names of one run have the
/// same length, so that they sort by number. Locks the folder against other runs during its lifetime.
class FrameFolder {
 public:
  /// Makes the folder, and those above it, if they do not exist. Throws BatchFailure if it cannot, if no file
  /// can be written there, or if the folder has, or is getting, frames of another run: a film would mix them.
  FrameFolder(std::filesystem::path folder, std::int64_t lastNumber);
  ~FrameFolder();
  FrameFolder(const FrameFolder&) = delete;
  FrameFolder& operator=(const FrameFolder&) = delete;

  /// True if a file name is that of a frame.
  static bool isFrame(const std::string& name);

  /// The frames written so far, in their order. Reads their files. Throws std::system_error.
  std::vector<RecordedFrame> content() const;

  /// Writes the next frame, the first with number 0, as writeOutput does.
  void add(std::string_view png);

 private:
  std::filesystem::path pathOf(std::int64_t number) const;
  void lock();

  std::filesystem::path folder_;
  std::size_t digits_;
  std::int64_t next_ = 0;
  int lock_ = -1;
};

}  // namespace quorvane
