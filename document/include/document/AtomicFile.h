#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace quorvane {

/// Replaces the whole content of a file, or leaves it as it was.
///
/// The content goes to a GrowingFile beside the target, reaches the disk, and then takes the target's place.
/// An existing target keeps its permissions; a symbolic link stays one and what it points to is replaced. On
/// failure gives the reason, and no file is left behind. A device or a pipe is written to directly.
std::error_code writeFileAtomically(const std::filesystem::path& target, std::string_view content);

/// The reason why writeFileAtomically could not write the target now, if there is one. Leaves no trace.
std::error_code checkFileCanBeWritten(const std::filesystem::path& target);

}  // namespace quorvane
