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
  /// The old file itself was written to, because a new one could not have its owner and group.
  bool inPlace = false;
  /// Where all of the content is if writing in place failed half way; else empty.
  std::filesystem::path left = {};
};

/// What is to be said of a file that was written in place, and where the content is if that failed; as the
/// end of a line, empty if there is nothing to say.
inline constexpr const char* kNoteInPlace = "was written in place, to keep its owner and group";
std::string whereLeft(const Written& written);

/// Replaces the whole content of a file, or leaves it as it was.
///
/// The content goes to a GrowingFile beside the target, reaches the disk, and then takes the target's place.
/// An existing target keeps its owner, group and permissions; a symbolic link stays one and what it points to
/// is replaced; other hard links keep the old content. On failure no file is left behind but the one that is
/// named. A device or a pipe is written to directly.
Written writeFileAtomically(const std::filesystem::path& target, std::string_view content,
                            const MayWait& mayWait = waitForEver);

/// The reason why writeFileAtomically could not write the target now, if there is one. Leaves no trace.
std::error_code checkFileCanBeWritten(const std::filesystem::path& target);

}  // namespace quorvane
