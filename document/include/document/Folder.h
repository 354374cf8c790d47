#pragma once

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace quorvane {

/// The names in a folder, unsorted. std::filesystem's iterators are not used, since they end the process when
/// memory runs out.
std::error_code readFolder(const std::filesystem::path& folder, std::vector<std::string>& names);

/// True while a path, not followed if it is a link, leads to an open file.
bool isAt(const std::filesystem::path& path, int file);

/// Synchronises the names in a folder to the disk. Failure is ignored: the files in it are complete in any
/// case.
void syncFolder(const std::filesystem::path& folder);

}  // namespace quorvane
