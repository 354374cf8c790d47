#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "document/Outlet.h"

namespace quorvane {

/// How a file was written.
struct Written {
  std::error_code error;
  /// The old file itself was overwritten, because a new one could not have its owner and group.
  bool inPlace = false;
  /// The file with the whole content if writing in place failed half way; else empty.
  std::filesystem::path left = {};
};

/// The end of the message about a file that was written in place: where the content is if that failed; else
/// empty.
inline constexpr const char* kNoteInPlace = "was written in place, to keep its owner and group";
std::string whereLeft(const Written& written);

/// Replaces the whole content of a file, or leaves it unchanged.
///
/// The content is written to a GrowingFile beside the target, synchronised to the disk, and renamed to the
/// target. An existing target keeps its owner, group and permissions; a symbolic link is kept and its target
/// replaced; other hard links keep the old content. On failure no file is left behind except the one that the
/// result names. A device or a pipe is written directly.
Written writeFileAtomically(const std::filesystem::path& target, std::string_view content,
                            const MayWait& mayWait = waitForEver);

/// Why writeFileAtomically could not write the target now, if so. Leaves no file behind.
std::error_code checkFileCanBeWritten(const std::filesystem::path& target);

}  // namespace quorvane
