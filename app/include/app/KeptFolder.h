#pragma once

#include <filesystem>
#include <system_error>
#include <vector>

/// The folder in which windows keep unsaved work: documents named by date and time, such as
/// "2026-11-22 01.49.14.quorvane", readable only by their owner. Files with other names are ignored.
namespace quorvane {

/// The number of copies kept, in addition to those of open windows.
inline constexpr std::size_t kMaxKeptCopies = 5;

/// quorvane in $XDG_STATE_HOME, or in .local/state of the user's home; empty if neither is known.
std::filesystem::path keptFolder();

/// Creates an empty copy under a new name: that of this second, or of the next one that is free. Creates the
/// folder if needed.
std::error_code claimCopy(const std::filesystem::path& folder, std::filesystem::path& copy);

/// Marks a copy as that of an open window for as long as the descriptor is open. Needs a writable descriptor.
void markInUse(int copy);
bool isInUse(const std::filesystem::path& copy);

/// All copies, newest first.
std::vector<std::filesystem::path> keptCopies(const std::filesystem::path& folder);

/// Removes the oldest copies beyond the limit, and partial files of killed processes.
void tidyKeptFolder(const std::filesystem::path& folder);

/// The copies of closed windows, newest first, without those that an earlier call has returned.
std::vector<std::filesystem::path> takeUntoldCopies(const std::filesystem::path& folder);

}  // namespace quorvane
