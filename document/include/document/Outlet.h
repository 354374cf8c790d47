#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string_view>
#include <system_error>

/// Devices, pipes and descriptors that are written to as they are.
namespace quorvane {

/// Asked now and then while a reader keeps a pipe waiting, with the time since it last took something: false
/// ends the wait with FileError::kNobodyReads.
using MayWait = std::function<bool(std::chrono::milliseconds)>;

/// Waits for ever.
inline bool waitForEver(std::chrono::milliseconds) { return true; }
/// Takes a pipe only if it takes everything at once.
inline bool waitNever(std::chrono::milliseconds) { return false; }

/// Opens a device or a pipe for writing; a pipe waits for its reader. The descriptor, or -1 and the reason.
int openOutlet(const std::filesystem::path& path, const MayWait& mayWait, std::error_code& error);

/// Writes everything to a descriptor, which may be one that does not block. Signals are let in while it
/// waits.
std::error_code writeToOutlet(int file, std::string_view text, const MayWait& mayWait);

}  // namespace quorvane
