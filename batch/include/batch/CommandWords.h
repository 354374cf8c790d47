#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorvane {

/// What is wrong with the words of a command line before any of them is understood, as one line: an option
/// that does not exist, one without its value, a value where there is none, an empty name. None if nothing
/// is.
std::optional<std::string> wrongWord(const std::vector<std::string>& words);

}  // namespace quorvane
