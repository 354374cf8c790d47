#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "batch/Messages.h"
#include "process/StopSignals.h"

/// Reading and writing of the runner: files, and standard input and output as "-".
namespace quorvane {

/// Opens /dev/null on each of the descriptors 0 to 2 that is closed, such that its use still fails, so that
/// no file opened later becomes a standard stream.
void fillStandardDescriptors();

/// True for "-".
bool isStandardStream(const std::filesystem::path& path);

/// The whole text of a document. Throws BatchFailure.
std::string readInput(const std::filesystem::path& document);

/// Throws BatchFailure if writeOutput could not write the target now. Leaves no file behind.
void checkOutput(const std::filesystem::path& target);

/// Throws BatchFailure if the target is a device or a pipe, whose content cannot be read again.
void requireRegular(const std::filesystem::path& target);

/// Blocks signals while a regular file is written. None for a device or a pipe, which may block for ever and
/// cannot be left half written.
std::optional<SignalsHeld> signalsHeldFor(const std::filesystem::path& target);

/// Whether to wait further for a reader that has read nothing for this long: always before a stop signal,
/// five seconds at most after it.
bool mayWaitForReader(std::chrono::milliseconds stalled);

/// Writes to standard output. Throws BatchFailure.
void writeStandardOutput(std::string_view content);

/// Replaces a file as writeFileAtomically does, or writes to standard output. Throws BatchFailure. No signal
/// ends the process while a file is half written. Returns a note for the user, as one line; mostly empty.
std::string writeOutput(const std::filesystem::path& target, std::string_view content);

}  // namespace quorvane
