#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "study/Study.h"
#include "study/StudyError.h"

namespace quorvane {

/// Reads the TOML text of a study strictly: an unknown key, a wrong type or a value out of range throws
/// StudyError with the file and the line. Whether names of rules and types exist is seen when the first run
/// is made. file: as messages name it.
Study studyIn(std::string_view text, const std::filesystem::path& file);

/// The same for a file.
Study readStudy(const std::filesystem::path& file);

/// The whole text of a regular file. Throws StudyError.
std::string textOf(const std::filesystem::path& file);

}  // namespace quorvane
