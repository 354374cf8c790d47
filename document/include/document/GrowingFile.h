#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace quorvane {

/// A file that grows beside its target and takes the target's place once it is whole.
///
/// It is named after the target and the process, ".counts.csv.quorvane-4711.partial" beside "counts.csv"; a
/// target's name is cut where the whole would be too long for the file system. Symbolic links are followed.
/// A device or a pipe has no such file: it is opened once and written to directly. For one thread.
class GrowingFile {
 public:
  GrowingFile() = default;
  /// Removes the file unless it took the target's place or is kept.
  ~GrowingFile();
  GrowingFile(const GrowingFile&) = delete;
  GrowingFile& operator=(const GrowingFile&) = delete;

  /// Makes the file, empty, with the permissions of an existing target. Once only. A pipe waits for its
  /// reader.
  std::error_code open(const std::filesystem::path& target);

  /// Hands the text to the system, so that it stays whatever becomes of this process. On failure the file
  /// holds what it held before.
  std::error_code append(std::string_view text);

  /// Takes the target's place, with its permissions, once everything has reached the disk. On failure the
  /// target is as it was.
  std::error_code finish();

  /// Leaves the file where it is if it does not take the target's place.
  void keep() { kept_ = true; }
  bool isKept() const { return kept_; }

  /// Where the file is; empty if there is none, or none any more.
  const std::filesystem::path& partial() const { return partial_; }

 private:
  std::error_code openDevice(const std::filesystem::path& device);
  std::error_code create();
  std::error_code adoptPermissions() const;
  std::error_code close();

  std::filesystem::path target_;
  std::filesystem::path partial_;
  std::int64_t size_ = 0;
  int file_ = -1;
  bool kept_ = false;
};

}  // namespace quorvane
