#pragma once

#include <filesystem>
#include <system_error>
#include <vector>

/// The folder in which windows keep work that was not saved: documents named by date and time of the day,
/// such as "2026-11-22 01.49.14.quorvane", which only their owner may read. Files of other names are left
/// alone.
namespace quorvane {

/// So many copies stay. More only while windows are open that they belong to.
inline constexpr std::size_t kMaxKeptCopies = 5;

/// quorvane in $XDG_STATE_HOME, or else in .local/state of the user's home; empty where neither is known.
std::filesystem::path keptFolder();

/// Makes an empty copy under a name that nobody has: that of this second, or of the next one that is free.
/// Makes the folder first where it is missing.
std::error_code claimCopy(const std::filesystem::path& folder, std::filesystem::path& copy);

/// Marks a copy as one of a window that is open, as long as the descriptor is. Needs one for writing.
void markInUse(int copy);
bool isInUse(const std::filesystem::path& copy);

/// All copies, the last one first.
std::vector<std::filesystem::path> keptCopies(const std::filesystem::path& folder);

/// Removes the oldest copies where there are too many, and what processes that were killed have left half
/// written.
void tidyKeptFolder(const std::filesystem::path& folder);

/// The copies of windows that are gone, the last one first, without those that a call has given before.
std::vector<std::filesystem::path> takeUntoldCopies(const std::filesystem::path& folder);

}  // namespace quorvane
