#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string_view>
#include <system_error>

/// Writing to devices, pipes and descriptors directly.
namespace quorvane {

/// Called repeatedly while a pipe is full, with the time since its reader last read; false ends the wait with
/// FileError::kNobodyReads.
using MayWait = std::function<bool(std::chrono::milliseconds)>;

/// Waits for ever.
inline bool waitForEver(std::chrono::milliseconds) { return true; }
/// Opens a pipe only if it has a reader, and never waits for it.
inline bool waitNever(std::chrono::milliseconds) { return false; }

/// Opens a device or a pipe for writing; a pipe waits for its reader. The descriptor, or -1 and the reason.
int openOutlet(const std::filesystem::path& path, const MayWait& mayWait, std::error_code& error);

/// Writes everything to a descriptor, which may be non-blocking. Signals are unblocked while it waits.
std::error_code writeToOutlet(int file, std::string_view text, const MayWait& mayWait);

}  // namespace quorvane
