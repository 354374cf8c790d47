#pragma once

#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace quorvane {

std::string contentOf(const std::filesystem::path& file);
void put(const std::filesystem::path& file, const std::string& content);
/// In bytes; 0 while the file does not exist.
std::uintmax_t sizeOf(const std::filesystem::path& file);
/// Including the set-id and sticky bits.
mode_t permissionsOf(const std::filesystem::path& file);
/// Sorted.
std::vector<std::string> namesIn(const std::filesystem::path& folder);

/// An empty folder, removed with its contents at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

}  // namespace quorvane
