#pragma once

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace quorvane {

/// The names in a folder, in no order. The standard library's way to read one ends the process where there is
/// no memory left.
std::error_code readFolder(const std::filesystem::path& folder, std::vector<std::string>& names);

/// Waits until the names in a folder are on the disk. One that cannot be synchronised is no failure: what
/// stands in it is whole in any case.
void syncFolder(const std::filesystem::path& folder);

}  // namespace quorvane
