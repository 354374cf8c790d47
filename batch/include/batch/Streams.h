#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "batch/StopSignals.h"

/// Where the runner reads and writes: files, and standard input and output, which "-" stands for.
namespace quorvane {

/// A file that cannot be read or written, or does not hold what it should.
class BatchFailure : public std::runtime_error {
 public:
  BatchFailure(const std::string& file, const std::string& why) : std::runtime_error(file + ": " + why) {}
  /// line: which file, and why.
  explicit BatchFailure(const std::string& line) : std::runtime_error(line) {}
};

/// True of "-".
bool isStandardStream(const std::filesystem::path& path);

/// All of standard input. Throws BatchFailure.
std::string readStandardInput();

/// Throws BatchFailure where writeOutput could not write the target now. Leaves no trace.
void checkOutput(const std::filesystem::path& target);

/// For as long as a file is written. A device or a pipe may never take what is written to it, and leaves no
/// half file, so signals do not wait for it.
std::optional<SignalsHeld> signalsHeldFor(const std::filesystem::path& target);

/// Replaces a file as writeFileAtomically does, or writes to standard output. Throws BatchFailure. No signal
/// ends the process while a file is only half written.
void writeOutput(const std::filesystem::path& target, std::string_view content);

}  // namespace quorvane
