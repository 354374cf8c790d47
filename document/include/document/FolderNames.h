#pragma once

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace quorvane {

/// The names in a folder, in no order. The standard library's way to read one ends the process where there is
/// no memory left.
std::error_code readFolder(const std::filesystem::path& folder, std::vector<std::string>& names);

}  // namespace quorvane
