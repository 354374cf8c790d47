#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "study/Study.h"

namespace quorvane {

/// A word as a POSIX shell reads it back.
std::string shellWord(const std::string& word);

/// The call of quorvane-batch that makes a run by hand and writes its measurements to run-RUN.csv, as a line
/// for a shell, with a line feed. document: as found from the working folder.
std::string runCommand(const Study& study, const std::filesystem::path& document, std::int64_t run);

}  // namespace quorvane
