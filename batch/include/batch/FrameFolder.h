#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace quorvane {

/// A folder of numbered pictures, frame-000000.png, frame-000001.png and so on. All names of one run are
/// equally long, so that they sort as they are numbered. While it lives no other run takes the folder.
class FrameFolder {
 public:
  /// Makes the folder, and those above it, where there is none. Throws BatchFailure where it cannot, where no
  /// file can be written there, and where the folder holds or gets frames of another run: those of two runs
  /// would make one film.
  FrameFolder(std::filesystem::path folder, std::int64_t lastNumber);
  ~FrameFolder();
  FrameFolder(const FrameFolder&) = delete;
  FrameFolder& operator=(const FrameFolder&) = delete;

  /// True of the name of a frame.
  static bool isFrame(const std::string& name);

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
