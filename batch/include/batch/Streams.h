#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "batch/Messages.h"
#include "process/StopSignals.h"

/// Where the runner reads and writes: files, and standard input and output, which "-" stands for.
namespace quorvane {

/// Gives each of the descriptors 0 to 2 that is closed something that can be neither read nor written, so
/// that no file that is opened later becomes one of them.
void fillStandardDescriptors();

/// True of "-".
bool isStandardStream(const std::filesystem::path& path);

/// All of a document's text. Throws BatchFailure.
std::string readInput(const std::filesystem::path& document);

/// Throws BatchFailure where writeOutput could not write the target now. Leaves no trace.
void checkOutput(const std::filesystem::path& target);

/// For as long as a file is written. A device or a pipe may never take what is written to it, and leaves no
/// half file, so signals do not wait for it.
std::optional<SignalsHeld> signalsHeldFor(const std::filesystem::path& target);

/// Whether a reader that has taken nothing for so long is waited for: always, but only five seconds once the
/// run has been asked to stop.
bool mayWaitForReader(std::chrono::milliseconds stalled);

/// Writes to standard output. Throws BatchFailure.
void writeStandardOutput(std::string_view content);

/// Replaces a file as writeFileAtomically does, or writes to standard output. Throws BatchFailure. No signal
/// ends the process while a file is only half written. What there is to say of it otherwise, as a line;
/// mostly empty.
std::string writeOutput(const std::filesystem::path& target, std::string_view content);

}  // namespace quorvane
